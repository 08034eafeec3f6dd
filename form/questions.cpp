#include "form/questions.h"

#include <utility>

#include "form/desk.h"

namespace kalvo {

std::optional<ChosenFile> ChooseFile(Desk& desk, std::string_view dialog, FileDialogMode mode) {
  Questions& asked = desk.questions;
  asked.file_mode = mode;
  asked.file.reset();
  desk.navigator.ShowModal(dialog);
  asked.file_mode = FileDialogMode::kOpen;
  return std::exchange(asked.file, std::nullopt);
}

void RunByChosenMethod(Desk& desk, const std::function<void(Method)>& run) {
  desk.questions.run = run;
  desk.navigator.ShowModal(screen::kMethod);
  desk.questions.run = nullptr;
}

std::optional<bool> AskToRecover(Desk& desk, OfferedStudy offered) {
  desk.questions.offered = std::move(offered);
  desk.questions.recover.reset();
  desk.navigator.ShowModal(screen::kOldStudy);
  return std::exchange(desk.questions.recover, std::nullopt);
}

std::optional<EntryChoice> AskHowToEnter(Desk& desk) {
  desk.questions.entry_choice.reset();
  desk.navigator.ShowModal(screen::kEntryChoice);
  return std::exchange(desk.questions.entry_choice, std::nullopt);
}

std::string ChooseViewer(Desk& desk) {
  desk.questions.viewer.clear();
  desk.navigator.ShowModal(screen::kViewer);
  return std::exchange(desk.questions.viewer, {});
}

std::optional<int> ChooseSection(Desk& desk) {
  const std::int16_t here = desk.bench.study.CurrentRow;
  desk.questions.section_chosen = false;
  desk.navigator.ShowModal(screen::kGoTo);
  const std::int16_t chosen = std::exchange(desk.bench.study.CurrentRow, here);
  return std::exchange(desk.questions.section_chosen, false) ? std::optional<int>(chosen)
                                                             : std::nullopt;
}

void ChooseDesigner(Desk& desk, bool through_program) {
  desk.questions.designer_for_program = through_program;
  desk.navigator.ShowModal(screen::kDesigners);
  desk.questions.designer_for_program = false;
}

bool AskForListPassword(Desk& desk) {
  desk.questions.password_use = PasswordUse::kAsk;
  desk.questions.password_given = false;
  desk.navigator.ShowModal(screen::kListPassword);
  return std::exchange(desk.questions.password_given, false);
}

std::optional<std::string> AskForNewPassword(Desk& desk) {
  desk.questions.password_use = PasswordUse::kChange;
  desk.questions.new_password.reset();
  desk.navigator.ShowModal(screen::kListPassword);
  return std::exchange(desk.questions.new_password, std::nullopt);
}

void ShowPreview(Desk& desk, PreviewedPages& pages) {
  desk.questions.previewed = &pages;
  desk.navigator.ShowModal(screen::kPreview);
  desk.questions.previewed = nullptr;
  desk.questions.preview = {};
}

void ChooseResultRow(Desk& desk) {
  desk.questions.section_of_results = true;
  desk.navigator.ShowModal(screen::kGoTo);
  desk.questions.section_of_results = false;
}

}  // namespace kalvo

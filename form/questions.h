#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "form/previewed_pages.h"
#include "study/method.h"

namespace kalvo {

struct Desk;

/// What a modal screen is asked and what came of it. A form reads its own question and puts the
/// answer in; everybody else calls the functions below, which show the screen and give the answer.

/// What a file dialog is opened for.
enum class FileDialogMode { kOpen, kSave };

struct ChosenFile {
  std::filesystem::path path;
  bool recent = false;  ///< from the recent files
};

/// A study that an earlier run left: sections, title, its own file if it has one, last change.
struct OfferedStudy {
  int rows = 0;  ///< of the study, or of the sheet that is offered
  std::string title;
  std::filesystem::path file;
  std::string moment;
  bool sheet = false;  ///< its sheet holds what the rows do not
};

/// What section entry does with the rows that there are: it shows the first, or a new one after
/// the last.
enum class EntryChoice { kCorrect, kGoOn };

/// What `FrmCLPass` asks: the password of the list of designers, or a new one as well.
enum class PasswordUse { kAsk, kChange };

/// A place of the manual: a chapter by its name, a heading by its anchor.
struct ManualPlace {
  std::string chapter;
  std::string anchor{};

  bool operator==(const ManualPlace&) const = default;
};

struct Questions {
  FileDialogMode file_mode = FileDialogMode::kOpen;
  std::optional<ChosenFile> file;
  std::function<void(Method)> run;  ///< what `FrmCalcs` calls with the method chosen
  OfferedStudy offered;             ///< what `FrmOldStudy` offers back
  std::optional<bool> recover;
  std::optional<EntryChoice> entry_choice;
  std::string viewer;                 ///< `FrmEditor`: "NotePad", "WordPad" or nothing
  bool section_chosen = false;        ///< what `FrmGoTo` was left with
  bool section_of_results = false;    ///< `FrmGoTo` serves a view of results
  bool designer_for_program = false;  ///< `FrmCLient` serves a print through the program
  PasswordUse password_use = PasswordUse::kAsk;
  bool password_given = false;
  std::optional<std::string> new_password;  ///< empty: the list shall be open
  std::optional<ManualPlace> manual;        ///< where `FrmManual` is to be opened next
  PreviewFacts preview;                     ///< of the pages that are previewed next
  PreviewedPages* previewed = nullptr;      ///< what `FrmPreview` shows; nothing: it is closed
};

/// The file chosen in one of the dialogs for files; nothing: "Escape".
std::optional<ChosenFile> ChooseFile(Desk& desk, std::string_view dialog, FileDialogMode mode);

/// Has the method chosen in `FrmCalcs`, which makes the run by it before it closes; no run when it
/// is closed without a choice.
void RunByChosenMethod(Desk& desk, const std::function<void(Method)>& run);

/// Whether the study in work that an earlier run left shall be brought back; nothing when the
/// window was closed.
std::optional<bool> AskToRecover(Desk& desk, OfferedStudy offered);

/// What entry shall do with the rows that there are; nothing when the user does not want to enter.
std::optional<EntryChoice> AskHowToEnter(Desk& desk);

/// The program that shall show a text; empty when none was chosen.
std::string ChooseViewer(Desk& desk);

/// The number of a section chosen from the list of all; nothing: none was. `CurrentRow` stays.
std::optional<int> ChooseSection(Desk& desk);

/// Lets the user choose the designer whose name goes on paper, and keep the list of them.
/// `through_program`: the program prints by itself, which has less room for a name.
void ChooseDesigner(Desk& desk, bool through_program);

/// True when the user gave `AccessPassword`; what was wrong has been shown.
bool AskForListPassword(Desk& desk);

/// A new password for the list of designers, from a user who knows the old one; nothing: it stays.
std::optional<std::string> AskForNewPassword(Desk& desk);

/// Shows pages as they would be printed, with what `Questions::preview` says of them, and returns
/// when the user has closed them.
void ShowPreview(Desk& desk, PreviewedPages& pages);

/// Moves `CurrentRow` to a section chosen from the list of all.
void ChooseResultRow(Desk& desk);

}  // namespace kalvo

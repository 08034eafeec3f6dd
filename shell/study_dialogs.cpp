#include "shell/study_dialogs.h"

#include <utility>

#include "form/open_kept_sheet.h"
#include "form/tell.h"
#include "form/wait.h"
#include "shell/imposed_diameters.h"
#include "shell/message_table.h"
#include "shell/messages.h"
#include "shell/open_study.h"
#include "shell/recovery.h"
#include "study/kept_sheet.h"
#include "study/message_codes.h"
#include "study/recent_files.h"
#include "study/safety_copies.h"
#include "study/save_checks.h"
#include "study/settled_disk.h"
#include "study/study_file_names.h"
#include "study/study_origin.h"
#include "study/study_reset.h"
#include "study/unsaved.h"
#include "study/write_study.h"

namespace kalvo {
namespace {

bool HasRows(const Workbench& bench) { return bench.workspace.HasBytes(work_file::kRows); }

// The file to save to; nothing: "Escape".
std::optional<ChosenFile> ChooseTarget(Desk& desk) {
  Study& study = desk.bench.study;
  if (study.study_path == kEscapePath) {
    study.study_path = study.last_study_path;
  } else {
    study.last_study_path = study.study_path;
  }
  return ChooseFile(desk, screen::kFiles, FileDialogMode::kSave);
}

bool WriteTo(Desk& desk, const std::filesystem::path& target) {
  Workbench& bench = desk.bench;
  Study& study = bench.study;
  study.study_path = WithExtension(target, study.system_kind);
  if (!SetDamagedAside(desk)) {
    study.study_path = study.last_study_path;
    return false;
  }
  const Outcome written = [&] {
    const WaitShown wait(desk.navigator);
    return WriteStudy(bench);
  }();
  if (!TellIfFailed(bench, written)) {
    study.study_path = study.last_study_path;
    return false;
  }
  if (bench.workspace.Exists(work_file::kFluid)) study.fluid_assumed = false;  // it has a file now
  // A list that cannot be written makes no save undone.
  static_cast<void>(AddRecentFile(bench.workspace, study.study_path));
  return true;
}

bool NothingToSave(Workbench& bench) {
  if (bench.workspace.Exists(work_file::kRows) || bench.study.CurrentRow == 1) return false;
  bench.Show(message::kNoData);
  return true;
}

bool IsOwn(const Workbench& bench, const std::filesystem::path& target) {
  const Disk& disk = bench.workspace.outer_disk();
  const std::filesystem::path& own = bench.study.study_path;
  return !own.empty() &&
         BehindLink(disk, AsInFolder(disk, own)) == BehindLink(disk, AsInFolder(disk, target));
}

bool MayReplace(Workbench& bench, std::string what, const std::filesystem::path& file,
                std::string question) {
  return bench.Ask({std::string(kAttentionTitle),
                    {std::move(what), file.string(), std::move(question)},
                    box_style::kStopDefaultNo}) == Answer::kYes;
}

// Message 135, once in a run of the program.
bool MayLeaveSaved(Desk& desk) {
  Workbench& bench = desk.bench;
  if (bench.study.unsaved_changes || !HasRows(bench) || desk.screens.asked_to_leave_saved) {
    return true;
  }
  desk.screens.asked_to_leave_saved = true;
  return bench.Show(message::kLeaveSavedStudy) == Answer::kYes;
}

// A safety copy is in no saved file: it is saved under the study's own name, never over itself.
void CountAsBroughtBack(Workbench& bench, const std::filesystem::path& copy) {
  Study& study = bench.study;
  const Disk& disk = bench.workspace.outer_disk();
  const auto note = disk.Read(copy / work_file::kOrigin);
  study.study_path.clear();
  RebuildNameState(bench);
  study.saved_digest.reset();
  study.origin_path = note ? OriginIn(*note) : std::filesystem::path();
  study.unsaved_changes = true;
}

// The sheet that was kept beside the rows of a safety copy. One that cannot be opened stays there.
void BringSheetBack(Desk& desk, const std::filesystem::path& copy) {
  Workbench& bench = desk.bench;
  const Disk& disk = bench.workspace.outer_disk();
  const std::filesystem::path file = copy / work_file::kSheetInWork;
  auto bytes = disk.Read(file);
  if (!bytes && bytes.error().IsMissing()) return;
  const auto sheet = bytes ? DecodeSheet(*bytes, file, desk.separators.decimal)
                           : Result<SheetImage>(bytes.error());
  if (!sheet) {
    TellError(bench, sheet.error());
    return;
  }
  TellIfFailed(bench, KeepSheet(bench.workspace, bench.study, work_file::kSheetInWork,
                                std::move(bytes).value()));
}

// Winter's entry that was kept beside the rows of a safety copy, if it is of as many rows.
void BringWinterBack(Workbench& bench, const std::filesystem::path& copy) {
  const std::filesystem::path file = copy / work_file::kWinterInWork;
  auto bytes = bench.workspace.outer_disk().Read(file);
  if (!bytes && bytes.error().IsMissing()) return;
  if (!bytes) {
    TellError(bench, bytes.error());
    return;
  }
  const auto rows = bench.workspace.Read(work_file::kRows);
  if (!rows) {
    TellError(bench, rows.error());
  } else if (rows->size() != bytes->size()) {
    bench.Ask({std::string(kAttentionTitle),
               {"Οι τιμές του Χειμώνα που φυλάχθηκαν είναι άλλου πλήθους Τμημάτων.",
                "Μένουν, όπως είναι, στο Αντίγραφο Ασφαλείας :", file.string()},
               box_style::kExclamation});
  } else {
    TellIfFailed(bench, bench.workspace.Write(work_file::kWinter, std::move(bytes).value()));
  }
}

}  // namespace

bool SaveStudy(Desk& desk) {
  Workbench& bench = desk.bench;
  Study& study = bench.study;
  if (NothingToSave(bench) || !MaySaveWithoutImposed(bench)) return false;
  const bool unsaved = std::exchange(study.unsaved_changes, true);
  const std::optional<ChosenFile> target = ChooseTarget(desk);
  study.unsaved_changes = unsaved;
  if (!target) {
    study.study_path = study.last_study_path;
    return false;
  }
  return WriteTo(desk, target->path);
}

bool SaveToOwnFile(Desk& desk) {
  Workbench& bench = desk.bench;
  Study& study = bench.study;
  if (study.study_path == kEscapePath) study.study_path = study.last_study_path;
  if (study.study_path.empty()) return SaveStudy(desk);
  if (NothingToSave(bench) || !MaySaveWithoutImposed(bench)) return false;
  const auto disk = SettleStudy(bench.workspace.outer_disk(), study.study_path);
  if (!disk) {
    TellError(bench, disk.error());
    return false;
  }
  if (!AskBeforeSaving(desk, study.study_path, Overwriting::kUnasked)) return false;
  study.last_study_path = study.study_path;
  return WriteTo(desk, study.study_path);
}

bool AskAboutUnsaved(Desk& desk) {
  Workbench& bench = desk.bench;
  if (!HasUnsavedChanges(bench)) return true;
  switch (bench.Show(message::kSaveChanges)) {
    case Answer::kYes:
      return !AskToOpenKeptSheet(desk) && SaveStudy(desk);
    case Answer::kNo:
      return true;
    case Answer::kCancel:
    case Answer::kNone:
      break;
  }
  return false;
}

bool AskBeforeOpening(Desk& desk) {
  Workbench& bench = desk.bench;
  if (HasUnsavedChanges(bench)) {
    const Answer answer = bench.Show(message::kSaveChanges);
    if (answer == Answer::kCancel) bench.study.unsaved_changes = false;
    if (answer == Answer::kCancel || answer == Answer::kNone) return false;
    if (answer == Answer::kYes && (AskToOpenKeptSheet(desk) || !SaveStudy(desk))) return false;
  }
  return MayLeaveSaved(desk);
}

void AskToOpen(Desk& desk) {
  if (AskBeforeOpening(desk)) OpenFromDialog(desk, screen::kStudies);
}

void OpenFromDialog(Desk& desk, std::string_view dialog) {
  const std::optional<ChosenFile> chosen = ChooseFile(desk, dialog, FileDialogMode::kOpen);
  if (!chosen) return;
  const auto& [path, recent] = *chosen;
  const bool opened = OpenChosen(desk, path, recent ? RecentList::kLeave : RecentList::kAdd);
  // To the top.
  if (opened && recent) static_cast<void>(AddRecentFile(desk.bench.workspace, path));
}

bool OpenChosen(Desk& desk, const std::filesystem::path& path, RecentList recent) {
  Workbench& bench = desk.bench;
  Study& study = bench.study;
  const bool unsaved = std::exchange(study.unsaved_changes, false);
  study.last_study_path = study.study_path;
  study.study_path = path;
  study.entry_mode = kFormEntry;
  const std::filesystem::path copy = SafetyCopyFolder(bench.workspace.outer_disk(), path);
  const OpenEnd end = [&] {
    const WaitShown wait(desk.navigator);
    // A copy is no file to be listed among those used last.
    return OpenStudyFile(bench, copy.empty() ? recent : RecentList::kLeave,
                         [&] { return KeepSafetyCopy(bench, desk.safety_folders(), copy); });
  }();
  if (end != OpenEnd::kNotOpened) {
    if (!copy.empty()) {
      CountAsBroughtBack(bench, copy);
      BringSheetBack(desk, copy);
      BringWinterBack(bench, copy);
    }
    NoteOrigin(bench.workspace, study.study_path.empty() ? study.origin_path : study.study_path);
    return true;
  }
  study.unsaved_changes = unsaved;
  study.unsaved_changes = HasUnsavedChanges(bench);  // a study that broke in loading leaves none
  return false;
}

bool ThrowAwayStudy(Desk& desk) {
  Workbench& bench = desk.bench;
  if (!KeepSafetyCopy(bench, desk.safety_folders())) return false;
  ResetStudy(bench);
  bench.study.unsaved_changes = false;
  return true;
}

bool AskBeforeSaving(Desk& desk, const std::filesystem::path& target, Overwriting overwriting) {
  Workbench& bench = desk.bench;
  const bool changed = IsOwn(bench, target) && ChangedOnDisk(bench);
  const bool there = bench.workspace.outer_disk().Exists(target);
  bool may = true;
  if (changed) {
    may = MayReplace(bench, "!! Το Αρχείο της Μελέτης άλλαξε στον δίσκο, ενώ ήταν ανοικτή εδώ !!",
                     target, "Θέλετε να αντικατασταθεί με ό,τι είναι ανοικτό εδώ ?");
  } else if (there && overwriting == Overwriting::kAsked) {
    may = ConfirmOverwrite(bench);
  }
  if (const auto file = ProtectedTarget(bench.workspace, target); may && file) {
    may = MayReplace(bench, "!! Το Αρχείο είναι προστατευμένο από εγγραφή !!", *file,
                     "Θέλετε να το αντικαταστήσω ?");
  }
  if (const auto file = TwinsCompanion(bench.workspace, target); may && file) {
    may = MayReplace(bench, "!! Το Αρχείο του υγρού ανήκει και σε Μελέτη του άλλου είδους !!",
                     *file, "Θέλετε να αλλάξει και για εκείνη το υγρό ?");
  }
  return may;
}

}  // namespace kalvo

#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "engine/driver.h"
#include "form/navigator.h"
#include "form/sound.h"
#include "form/viewer.h"
#include "study/workbench.h"

namespace kalvo {

/// What the user has set for good, beside any study.
struct Options {
  bool SoundOn = false;
  bool ChkDataKind = true;      ///< sections are entered in the sheet
  bool folder_commands = true;  ///< `CmdFF` and `CmdCopyFiles` are visible

  bool operator==(const Options&) const = default;
};

/// What a file dialog is opened for.
enum class FileDialogMode { kOpen, kSave };

/// Which of the results' views is in use: `ResultsView`.
enum class ResultsView { kOne = 0, kOneFromSheet = 1, kSheet = 2 };

/// A study that an earlier run left: rows, title, its own file if it has one, last change.
struct OfferedStudy {
  int rows = 0;
  std::string title;
  std::filesystem::path file;
  std::string moment;
};

/// What screens tell each other. One value of each for the whole program.
struct ScreenState {
  FileDialogMode file_mode = FileDialogMode::kOpen;
  bool returning_from_results = false;
  bool returning_from_data = false;
  bool returning_from_files = false;
  std::filesystem::path chosen_file;     ///< what a file dialog chose; empty: "Escape"
  bool chosen_recent = false;            ///< it was chosen from the recent files
  bool asked_to_leave_saved = false;     ///< message 135 was shown in this run
  std::filesystem::path study_argument;  ///< given from outside, to be opened; empty: none
  std::filesystem::path study_waiting;   ///< the same, which gave way to a recovery
  std::string viewer;                    ///< `FrmEditor`: "NotePad", "WordPad" or nothing
  std::function<void(Method)> run;       ///< what `FrmCalcs` calls with the method chosen
  std::optional<bool> recover;           ///< `FrmOldStudy`: nothing when its window was closed
  OfferedStudy offered;                  ///< what `FrmOldStudy` offers back
  bool edit_mode = false;
  bool goto_serves_results = false;
  ResultsView results_view = ResultsView::kOne;
  bool results_begin = false;  ///< the view about to open begins a session of results
  bool ChangeFormOpen = false;
  bool WinterPump = false;
  bool ResultsLeft = false;
};

/// What every form is handed beside the study's workbench.
struct Desk {
  Workbench& bench;
  Navigator& navigator;
  Sound& sound;
  Viewer& viewer;
  Separators separators;
  Options options{};
  ScreenState screens{};
  std::filesystem::path program_folder{};
  std::filesystem::path data_folder{};   ///< where studies are kept
  std::filesystem::path state_folder{};  ///< the program's log and scratch notes
  std::string version{};

  /// The sound of a command, when sounds are on.
  void Click() const {
    if (options.SoundOn) sound.Play();
  }
};

}  // namespace kalvo

#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <string>

#include "form/clipboard.h"
#include "form/navigator.h"
#include "form/printers.h"
#include "form/questions.h"
#include "form/sound.h"
#include "form/viewer.h"
#include "study/method.h"
#include "study/safety_copies.h"
#include "study/workbench.h"

namespace kalvo {

/// What the user has set for good, beside any study.
struct Options {
  bool SoundOn = false;
  bool ChkDataKind = true;      ///< sections are entered in the sheet
  bool folder_commands = true;  ///< `CmdFF` and `CmdCopyFiles` are visible
  std::string designer;         ///< the name chosen last; empty: none was

  bool operator==(const Options&) const = default;
};

/// Which of the results' views is in use: `ResultsView`.
enum class ResultsView { kOne = 0, kOneFromSheet = 1, kSheet = 2 };

class TeeCounters;
class SectionSitting;
class DiameterView;
class ChangeHistory;
class SpreadsheetApplication;
class FileDialog;
class PrintDatabase;
class Volumes;

/// No value is in memory.
constexpr float kNoMemory = -1.0F;

/// What screens tell each other and outlives them. One value of each for the whole program.
struct ScreenState {
  bool asked_to_leave_saved = false;     ///< message 135 was shown in this run
  std::filesystem::path study_argument;  ///< given from outside, to be opened; empty: none
  std::filesystem::path study_waiting;   ///< the same, which gave way to a recovery
  ResultsView results_view = ResultsView::kOne;
  bool results_begin = false;  ///< the view about to open begins a session of results
  bool ChangeFormOpen = false;
  bool WinterPump = false;
  bool edit_mode = false;  ///< section or emitter entry began with rows, or with a list
  bool ResultsLeft = false;
  /// Whether the study was unsaved when its rows were kept, as the first of a session of results
  /// and before a change of diameters.
  bool first_rows_unsaved = false;
  bool rows_before_change_unsaved = false;
  std::string first_critical_branch;  ///< of the first rows
  /// Changes of diameters since the results were opened; nothing: there is none.
  std::shared_ptr<ChangeHistory> change_history;
  /// Values that F12 puts into the fields: flow in l/h and drop in mm w.g. of an emitter.
  std::array<float, 2> emitter_memory{kNoMemory, kNoMemory};
  /// Flow in l/h, flow pressure in m w.g. and height in m of an outlet.
  std::array<float, 3> outlet_memory{kNoMemory, kNoMemory, kNoMemory};
  /// Section entry under way; its screens hand it on to each other.
  std::shared_ptr<SectionSitting> section_sitting;
  std::string CurrentDesigner;            ///< chosen in this run; empty: none was
  std::string AccessPassword;             ///< of the list of designers; empty: it is open
  bool entry_goes_on = false;             ///< the section form opens on a new row after the last
  bool back_to_sheet = false;             ///< the end of the emitters leads to the sheet
  bool open_kept_sheet = false;           ///< the sheet opens with what was kept, without asking
  TeeCounters* tee_counters = nullptr;    ///< what the tee window serves; nothing: it is closed
  DiameterView* diameter_view = nullptr;  ///< the view of results that is open; nothing: none is
  /// The route that `FrmXLorNOT` was left with, at most one; what `FrmPRNR1` prints: 1 data, 2
  /// results.
  bool RouteProgram = false;
  bool RouteExcel = false;
  int ReportKind = 0;
};

/// What every form is handed beside the study's workbench.
struct Desk {
  Workbench& bench;
  Navigator& navigator;
  Sound& sound;
  Viewer& viewer;
  Clipboard& clipboard;
  Printers& printer;
  Separators separators;
  Options options{};
  ScreenState screens{};
  Questions questions{};
  std::filesystem::path program_folder{};
  std::filesystem::path installed_folder{};  ///< what is delivered: libraries, manual
  std::filesystem::path data_folder{};       ///< where studies are kept
  std::filesystem::path state_folder{};      ///< the program's log and scratch notes
  std::string version{};
  /// What reports are made with; there is none in a program without windows.
  SpreadsheetApplication* spreadsheet = nullptr;
  FileDialog* file_dialog = nullptr;
  PrintDatabase* print_database = nullptr;
  Volumes* volumes = nullptr;  ///< there are none in a program without windows

  [[nodiscard]] SafetyFolders safety_folders() const { return {data_folder, state_folder}; }

  /// The sound of a command, when sounds are on.
  void Click() const {
    if (options.SoundOn) sound.Play();
  }
};

}  // namespace kalvo

#include "results/results_session.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "engine/kept_results.h"
#include "engine/lost_walk.h"
#include "engine/rerun.h"
#include "engine/sizing.h"
#include "engine/trap.h"
#include "engine/winter_values.h"
#include "form/tell.h"
#include "form/wait.h"
#include "results/change_history.h"
#include "results/compare_with_first.h"
#include "study/calculation_boxes.h"
#include "study/message_codes.h"
#include "study/tables.h"

namespace kalvo {
namespace {

constexpr const char* kSettledTitle = "!!... ΠΡΟΣΟΧΗ ...!!";

// Whether the rows in that file were unsaved when they were kept.
bool& UnsavedWhenKept(Desk& desk, std::string_view kept) {
  return kept == work_file::kFirstRows ? desk.screens.first_rows_unsaved
                                       : desk.screens.rows_before_change_unsaved;
}

Result<std::vector<SectionRow>> ReadResultRows(const Workbench& bench, std::string_view name) {
  const auto file = bench.workspace.Rows(name);
  auto rows = file.ReadAll();
  if (!rows) return rows;
  if (rows->empty()) return FileError{file.path(), "Δεν υπάρχουν εγγραφές"};
  if (rows->size() > std::numeric_limits<std::int16_t>::max()) {
    return FileError{file.path(), "Οι εγγραφές είναι πάρα πολλές"};
  }
  return rows;
}

void CountRows(Study& study, const std::vector<SectionRow>& rows) {
  study.SectionCount = static_cast<std::int16_t>(rows.size());
  study.SingleSection = rows.size() == 1;
}

// What the study knows of the rows follows rows that were brought back.
void FollowRows(Workbench& bench, std::vector<SectionRow> rows) {
  const auto fault = RunTrapped(bench, [&] {
    FollowResults(bench, RowTable(std::move(rows)));
    RecountQuantities(bench);
  });
  bench.study.recalculation_needed = fault.has_value();
}

// The rows stand: copies from before go, the one first that the next start would put over them.
void DropOlderRows(Workspace& workspace) {
  workspace.Delete(work_file::kRowsBeforeChange);
  workspace.Delete(work_file::kFirstRows);
}

bool AreAsCalculated(const Workbench& bench) {
  const auto rows = bench.workspace.Rows().ReadAll();
  const auto& calculated = bench.study.CalculatedDiameters;
  return rows && std::ranges::equal(*rows, calculated, [](const SectionRow& row, const auto& name) {
           return row.NomiDiam.Trimmed() == name.Trimmed();
         });
}

// New diameters are those of the study from now on.
void LetDiametersStand(Workbench& bench) {
  if (const Outcome emptied = EmptyWinterResults(bench.workspace); !emptied) {
    bench.Ask(StaleWinterBox(emptied.error()));
  }
  if (const auto rows = bench.workspace.Rows().ReadAll()) {
    KeepCalculatedDiameters(bench.study, *rows);
  }
}

Answer AskWhichStand(Desk& desk) {
  // After a run that failed there is nothing to compare.
  const auto comparison =
      desk.bench.study.recalculation_needed ? std::nullopt : CompareWithFirst(desk);
  return desk.bench.ShowWith(comparison ? FactsOf(*comparison, desk) : MessageFacts{},
                             message::kKeepDiameters);
}

/// What became of the question at the end of a session.
enum class Settled {
  kYes,
  kNo,    ///< what was chosen could not be done
  kOpen,  ///< nothing was chosen
};

Settled SettleDiameters(Desk& desk, const std::function<void()>& show_again) {
  Workbench& bench = desk.bench;
  const Answer answer = AskWhichStand(desk);
  if (answer == Answer::kNone) return Settled::kOpen;
  if (answer == Answer::kYes) {
    if (!TellIfFailed(bench, bench.workspace.Flush(work_file::kRows))) return Settled::kNo;
    LetDiametersStand(bench);
    DropOlderRows(bench.workspace);
    show_again();
    bench.Ask({kSettledTitle,
               {"ΕΠΙΚΥΡΩΣΗ ΑΛΛΑΓΩΝ ΔΙΑΜΕΤΡΩΝ : Ισχύουν εφεξής οι ΝΕΕΣ ΔΙΑΜΕΤΡΟΙ ΣΩΛΗΝΩΝ"},
               box_style::kInformation});
    return Settled::kYes;
  }
  // Else a kill after the next step would put these over the first rows.
  bench.workspace.Delete(work_file::kRowsBeforeChange);
  if (!BringBackRows(desk, work_file::kFirstRows)) return Settled::kNo;
  show_again();
  bench.Ask({kSettledTitle,
             {"ΑΚΥΡΩΣΗ ΑΛΛΑΓΩΝ ΔΙΑΜΕΤΡΩΝ : Ισχύουν οι ΠΑΛΑΙΕΣ ΔΙΑΜΕΤΡΟΙ ΣΩΛΗΝΩΝ"},
             box_style::kInformation});
  return Settled::kYes;
}

// Diameters that came back after a calculation that failed have the first results, too. Where the
// first rows are gone the present diameters stand. False: the first rows could not be brought back.
bool LetFirstResultsStand(Desk& desk) {
  if (!desk.bench.workspace.HasBytes(work_file::kFirstRows)) {
    if (!AreAsCalculated(desk.bench)) LetDiametersStand(desk.bench);
    return true;
  }
  return !desk.bench.study.recalculation_needed || BringBackRows(desk, work_file::kFirstRows);
}

// What the results were opened from shows.
void EndSession(Desk& desk) {
  desk.screens.change_history.reset();
  desk.navigator.Show(desk.screens.WinterPump ? screen::kWinter : screen::kMain);
}

}  // namespace

Result<std::vector<SectionRow>> TakeResultRows(Workbench& bench) {
  auto rows = ReadResultRows(bench, work_file::kRows);
  if (rows) CountRows(bench.study, *rows);
  return rows;
}

void OpenView(Desk& desk) {
  Workbench& bench = desk.bench;
  desk.navigator.Hide(screen::kMain);
  bench.study.CurrentRow = 1;
  const bool begins = std::exchange(desk.screens.results_begin, false);
  if (begins) desk.screens.change_history.reset();
  if ((begins || !bench.workspace.HasBytes(work_file::kFirstRows)) &&
      bench.workspace.HasBytes(work_file::kRows)) {
    KeepRows(desk, work_file::kFirstRows);
  }
}

bool KeepRows(Desk& desk, std::string_view kept) {
  Workbench& bench = desk.bench;
  UnsavedWhenKept(desk, kept) = bench.study.unsaved_changes;
  if (kept == work_file::kFirstRows)
    desk.screens.first_critical_branch = bench.study.critical_branch;
  bench.workspace.Pause();
  auto rows = bench.workspace.Read(work_file::kRows);
  if (!rows) {
    TellError(bench, rows.error());
    return false;
  }
  if (TellIfFailed(bench, bench.workspace.Write(kept, *std::move(rows)))) return true;
  bench.workspace.Delete(kept);  // of an earlier session, perhaps of other rows
  return false;
}

bool MakePreviousRows(Workbench& bench) {
  const Outcome copied = bench.workspace.Copy(work_file::kRows, work_file::kPreviousRows);
  if (TellIfFailed(bench, copied)) return true;
  bench.workspace.Delete(work_file::kPreviousRows);
  return false;
}

void CountAsShown(Desk& desk) {
  Workbench& bench = desk.bench;
  Study& study = bench.study;
  if (study.results_valid || study.recalculation_needed ||
      !bench.workspace.HasBytes(work_file::kRows)) {
    return;
  }
  study.results_valid = true;
  study.lost_walk = FindLostWalk(study);
  study.unsaved_changes = true;
  desk.screens.first_rows_unsaved = true;
}

bool ResultsHold(Desk& desk) {
  if (!desk.bench.study.recalculation_needed) return true;
  desk.bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ", {kNoResults}, box_style::kExclamation});
  return false;
}

void ShowCriticalBranch(Workbench& bench) {
  if (bench.study.SingleSection) bench.study.critical_branch = "1";
  bench.Show(message::kCriticalBranch);
}

bool BringBackRows(Desk& desk, std::string_view kept) {
  Workbench& bench = desk.bench;
  auto rows = ReadResultRows(bench, kept);
  if (!rows) {
    TellError(bench, rows.error());
    return false;
  }
  const Outcome moved = bench.workspace.MoveOver(kept, work_file::kRows);
  if (!TellIfFailed(bench, moved)) return false;
  bench.study.recalculation_needed = false;
  bench.study.unsaved_changes = UnsavedWhenKept(desk, kept);
  MakePreviousRows(bench);
  CountRows(bench.study, *rows);
  ClosePump(desk);
  auto& history = desk.screens.change_history;
  if (history != nullptr) history->CutBackTo(RowTable(*rows));
  FollowRows(bench, *std::move(rows));
  return true;
}

void ClosePump(Desk& desk) {
  if (desk.navigator.IsOpen(screen::kPump)) desk.navigator.Close(screen::kPump);
}

std::optional<bool> RerunWaitingChange(Desk& desk) {
  if (desk.screens.WinterPump) return false;  // its rows are the winter's
  const auto waits = ChangeWaits(desk.bench.workspace);
  if (!waits) {
    TellError(desk.bench, waits.error());
    return std::nullopt;
  }
  if (*waits) {
    const WaitShown wait(desk.navigator);
    Rerun(desk.bench);
  }
  return *waits;
}

void GoBack(Desk& desk, std::string_view view, const std::function<void()>& show_again) {
  Workbench& bench = desk.bench;
  CloseOneDiameter(desk);
  if (desk.screens.WinterPump) desk.navigator.Close(view);
  const auto ran = RerunWaitingChange(desk);
  if (!ran) return;
  if (*ran) show_again();
  const auto differ = DiametersDiffer(bench.workspace, work_file::kFirstRows);
  if (!differ) {
    TellError(bench, differ.error());
    return;
  }
  // Older rows are kept as long as the present ones are not what they should be.
  bool settled = bench.workspace.HasBytes(work_file::kRows);
  if (*differ) {
    if (SettleDiameters(desk, show_again) != Settled::kYes) return;
  } else if (!desk.screens.WinterPump) {
    settled = LetFirstResultsStand(desk) && settled;
  }
  desk.screens.results_view = ResultsView::kOne;
  desk.navigator.Close(screen::kPump);
  if (!desk.screens.WinterPump) desk.navigator.Close(view);
  if (settled && TellIfFailed(bench, bench.workspace.Flush(work_file::kRows))) {
    DropOlderRows(bench.workspace);
  }
  EndSession(desk);
}

void LeaveByWindow(Desk& desk) {
  CloseOneDiameter(desk);
  desk.navigator.Close(screen::kPump);
  desk.screens.results_view = ResultsView::kOne;
  Workbench& bench = desk.bench;
  // Nobody knows then whether the results are of these diameters.
  if (!RerunWaitingChange(desk)) bench.study.recalculation_needed = true;
  const auto differ = DiametersDiffer(bench.workspace, work_file::kFirstRows);
  bool settled = differ.ok();
  if (!differ) TellError(bench, differ.error());
  if (!differ || *differ) {
    if (!AreAsCalculated(bench)) LetDiametersStand(bench);
  } else if (!desk.screens.WinterPump) {
    settled = LetFirstResultsStand(desk);
  }
  if (bench.workspace.HasBytes(work_file::kRows) &&
      TellIfFailed(bench, bench.workspace.Flush(work_file::kRows))) {
    bench.workspace.Delete(work_file::kRowsBeforeChange);
    if (settled) bench.workspace.Delete(work_file::kFirstRows);
  }
  EndSession(desk);
}

void CloseOneDiameter(Desk& desk) {
  if (!desk.screens.ChangeFormOpen) return;
  desk.navigator.Close(screen::kOneDiameter);
  desk.screens.ChangeFormOpen = false;
  desk.Click();
}

}  // namespace kalvo

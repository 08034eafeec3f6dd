#include "results/results_session.h"

#include <utility>

#include "engine/rerun.h"
#include "form/tell.h"

namespace kalvo {
namespace {

constexpr int kKeepNewDiameters = 307;
constexpr int kCriticalBranch = 302;

// The rows are counted anew; with one the network is a single section.
void Recount(Workbench& bench) {
  const auto count = bench.workspace.Rows().Count();
  if (!count) return;
  bench.study.SectionCount = static_cast<std::int16_t>(*count);
  if (*count == 1) bench.study.SingleSection = true;
}

void Inform(Workbench& bench, const char* line) { bench.Ask({"!!... ΠΡΟΣΟΧΗ ...!!", {line}, 64}); }

// The rows with which the session began take the place of those with the new diameters.
Outcome RestoreFirstRows(Workbench& bench) {
  if (Outcome moved = bench.workspace.MoveOver(work_file::kFirstRows, work_file::kRows); !moved) {
    return moved;
  }
  const auto row = bench.workspace.Rows().Read(1);
  if (!row) return row.error();
  bench.study.TotalFlowM3h = row->PAR;
  bench.study.PumpHead = row->DP / 1000.0F;
  return Done{};
}

void SettleDiameters(Workbench& bench, const std::function<void()>& reread) {
  const auto differ = DiametersDiffer(bench.workspace, work_file::kFirstRows);
  if (!differ || !*differ) return;
  bench.Show(kKeepNewDiameters);
  if (std::exchange(bench.study.answer, Answer::kNone) == Answer::kYes) {
    bench.workspace.Delete(work_file::kFirstRows);
    reread();
    Inform(bench, "ΕΠΙΚΥΡΩΣΗ ΑΛΛΑΓΩΝ ΔΙΑΜΕΤΡΩΝ : Ισχύουν εφεξής οι ΝΕΕΣ ΔΙΑΜΕΤΡΟΙ ΣΩΛΗΝΩΝ");
    return;
  }
  if (!TellIfFailed(bench, RestoreFirstRows(bench))) return;
  reread();
  Inform(bench, "ΑΚΥΡΩΣΗ ΑΛΛΑΓΩΝ ΔΙΑΜΕΤΡΩΝ : Ισχύουν οι ΠΑΛΑΙΕΣ ΔΙΑΜΕΤΡΟΙ ΣΩΛΗΝΩΝ");
}

}  // namespace

Outcome BeginResults(Desk& desk) {
  Workbench& bench = desk.bench;
  Study& study = bench.study;
  study.CurrentRow = 1;
  Recount(bench);
  if (!study.results_valid) {
    study.results_valid = true;
    study.unsaved_changes = true;
  }
  if (!std::exchange(desk.screens.results_begin, false)) return Done{};
  desk.screens.ResultsLeft = false;
  return bench.workspace.Copy(work_file::kRows, work_file::kFirstRows);
}

void LeaveResults(Desk& desk, const std::function<void()>& reread) {
  Workbench& bench = desk.bench;
  Recount(bench);
  SettleDiameters(bench, reread);
  desk.screens.results_view = ResultsView::kOne;
  desk.screens.returning_from_results = true;
  bench.workspace.Delete(work_file::kFirstRows);
  bench.workspace.Delete(work_file::kRowsBeforeChange);
  desk.navigator.Show(screen::kMain);
}

void ShowCriticalBranch(Desk& desk) {
  Workbench& bench = desk.bench;
  Recount(bench);
  if (bench.study.SectionCount == 1) bench.study.critical_branch = "1";
  bench.Show(kCriticalBranch);
}

}  // namespace kalvo

#include "results/change_history.h"

#include <algorithm>
#include <utility>

#include "engine/kept_results.h"
#include "engine/rerun.h"
#include "form/tell.h"
#include "form/wait.h"
#include "results/diameter_roads.h"
#include "results/diameter_view.h"
#include "results/results_session.h"

namespace kalvo {
namespace {

ResultsSnapshot TakeLast(std::vector<ResultsSnapshot>& steps) {
  ResultsSnapshot last = std::move(steps.back());
  steps.pop_back();
  return last;
}

bool IsChangedFrom(const Workbench& bench, const RowTable& before) {
  auto rows = bench.workspace.Rows().ReadAll();
  return !rows || !HaveSameDiameters(before, RowTable(*std::move(rows)));
}

// The rows are those that a change from the menu would bring back.
bool AreRowsBeforeChange(const Workspace& workspace) {
  const auto differ = DiametersDiffer(workspace, work_file::kRowsBeforeChange);
  return workspace.HasBytes(work_file::kRowsBeforeChange) && differ && !*differ;
}

// Puts the rows of a step in place.
bool BringStepBack(Desk& desk, HistoryStep step) {
  if (!HasStep(desk, step)) return false;
  ChangeHistory& history = *desk.screens.change_history;
  auto now = TakeSnapshot(desk.bench);
  if (!now) {
    TellError(desk.bench, now.error());
    return false;
  }
  const bool undo = step == HistoryStep::kUndo;
  const ResultsSnapshot& wanted = undo ? history.ToUndo() : history.ToRedo();
  TellIfFailed(desk.bench, BringBack(desk.bench, wanted));
  if (IsChangedFrom(desk.bench, wanted.rows)) return false;
  undo ? history.Undone(*std::move(now)) : history.Redone(*std::move(now));
  ClosePump(desk);
  return true;
}

// The step, then what follows it. A copy of the rows before a change from the menu goes along with
// a step behind it: it would bring back what was taken back.
bool MakeStep(Desk& desk, HistoryStep step, const std::function<void()>& follow) {
  const Workspace& workspace = desk.bench.workspace;
  const bool behind = step == HistoryStep::kUndo && AreRowsBeforeChange(workspace);
  if (!BringStepBack(desk, step)) return false;
  follow();
  const auto waits = ChangeWaits(workspace);
  if (behind && waits && !*waits) KeepRows(desk, work_file::kRowsBeforeChange);
  return true;
}

void CalculateStep(Desk& desk) {
  if (desk.screens.results_view == ResultsView::kSheet) {
    RerunWaitingChange(desk);
    return;
  }
  const WaitShown wait(desk.navigator);
  const auto ran = RerunIfChanged(desk.bench);
  if (!ran) TellError(desk.bench, ran.error());
}

}  // namespace

void ChangeHistory::Undone(ResultsSnapshot now) {
  TakeLast(done_);
  undone_.push_back(std::move(now));
}

void ChangeHistory::Redone(ResultsSnapshot now) {
  TakeLast(undone_);
  done_.push_back(std::move(now));
}

void ChangeHistory::CutBackTo(const RowTable& rows) {
  undone_.clear();
  const auto stands_again = [&rows](const ResultsSnapshot& before) {
    return HaveSameDiameters(before.rows, rows);
  };
  done_.erase(std::ranges::find_if(done_, stands_again), done_.end());
}

void MakeChange(Desk& desk, const std::function<void()>& change) {
  auto before = TakeSnapshot(desk.bench);
  if (!before) {
    TellError(desk.bench, before.error());
    return;
  }
  change();
  if (!IsChangedFrom(desk.bench, before->rows)) return;
  ClosePump(desk);
  auto& history = desk.screens.change_history;
  if (history == nullptr) history = std::make_shared<ChangeHistory>();
  history->Add(*std::move(before));
}

bool HasStep(const Desk& desk, HistoryStep step) {
  const auto& history = desk.screens.change_history;
  if (history == nullptr) return false;
  return step == HistoryStep::kUndo ? history->CanUndo() : history->CanRedo();
}

bool TakeStep(Desk& desk, HistoryStep step) {
  return MakeStep(desk, step, [] {});
}

bool StepInResults(Desk& desk, HistoryStep step) {
  const bool made = MakeStep(desk, step, [&desk] {
    CloseOtherView(desk);
    CalculateStep(desk);
  });
  if (made && desk.screens.diameter_view != nullptr) desk.screens.diameter_view->ShowAgain();
  return made;
}

}  // namespace kalvo

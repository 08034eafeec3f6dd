#include "results/diameter_roads.h"

#include "engine/rerun.h"
#include "form/tell.h"
#include "results/diameter_view.h"
#include "results/results_session.h"
#include "study/message_codes.h"

namespace kalvo {
namespace {

bool IsRefusedInWinter(Desk& desk) {
  if (!desk.screens.WinterPump) return false;
  desk.bench.Show(message::kNoChangeInWinter);
  return true;
}

bool TakeButtonRoad(Desk& desk) {
  const auto ran = RerunWaitingChange(desk);
  if (!ran) return false;
  if (*ran && desk.screens.diameter_view != nullptr) desk.screens.diameter_view->ShowAgain();
  // Rows whose calculation failed are no reference: the older copies stand.
  if (desk.bench.study.recalculation_needed) return true;
  Workspace& workspace = desk.bench.workspace;
  const bool has_first = workspace.HasBytes(work_file::kFirstRows);
  return (has_first || KeepRows(desk, work_file::kFirstRows)) &&
         TellIfFailed(desk.bench, workspace.Copy(work_file::kRows, work_file::kPreviousRows));
}

bool TakeMenuRoad(Desk& desk) {
  const auto waits = ChangeWaits(desk.bench.workspace);
  if (!waits) {
    TellError(desk.bench, waits.error());
    return false;
  }
  return *waits || desk.bench.study.recalculation_needed ||
         KeepRows(desk, work_file::kRowsBeforeChange);
}

}  // namespace

bool TakeRoad(Desk& desk, ChangeRoad road) {
  if (IsRefusedInWinter(desk)) return false;
  return road == ChangeRoad::kButton ? TakeButtonRoad(desk) : TakeMenuRoad(desk);
}

void ChangeOneDiameter(Desk& desk, ChangeRoad road) {
  if (!desk.screens.ChangeFormOpen) {
    if (!TakeRoad(desk, road)) return;
    CloseOtherView(desk);
    desk.navigator.Hide(screen::kMain);
  }
  desk.navigator.Show(screen::kOneDiameter);
}

void ChangeManyDiameters(Desk& desk, ChangeRoad road) {
  if (desk.screens.ChangeFormOpen) {
    desk.bench.Show(message::kNoMassChange);
    return;
  }
  if (!TakeRoad(desk, road)) return;
  desk.navigator.ShowModal(screen::kManyDiameters);
  if (desk.screens.diameter_view != nullptr) desk.screens.diameter_view->BringToFront();
}

bool LeadsToOneDiameter(Desk& desk, const Key& key) {
  if (!desk.screens.ChangeFormOpen) return false;
  if (key == Plain(KeyCode::kF6)) {
    desk.navigator.Show(screen::kOneDiameter);
    return true;
  }
  if (key != Plain(KeyCode::kEscape)) return false;
  CloseOneDiameter(desk);
  return true;
}

bool MaySwitchViews(Desk& desk) {
  if (!desk.screens.ChangeFormOpen) return true;
  desk.bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
                  {"Οι < Διαθέσιμες Διάμετροι > είναι ανοικτές : κλείστε τις πρώτα"},
                  box_style::kInformation});
  return false;
}

void CloseOtherView(Desk& desk) {
  const bool sheet = desk.screens.results_view == ResultsView::kSheet;
  desk.navigator.Close(sheet ? screen::kResults : screen::kResultsSheet);
}

}  // namespace kalvo

#include "results/diameter_prompt.h"

#include <utility>

#include "engine/rerun.h"
#include "form/tell.h"
#include "form/wait.h"
#include "results/results_session.h"
#include "study/message_codes.h"

namespace kalvo {
namespace {

PromptEnd Recalculate(Desk& desk, const std::vector<SectionRow>& rows) {
  Workbench& bench = desk.bench;
  if (!HasAllDiameters(rows)) {
    bench.Show(message::kNoDiameters);
    return PromptEnd::kNothing;
  }
  const RunEnd end = [&] {
    const WaitShown wait(desk.navigator);
    return Rerun(bench);
  }();
  if (end != RunEnd::kCalculated) return PromptEnd::kFailed;
  if (TellIfFailed(bench, bench.workspace.Flush(work_file::kRows))) {
    bench.workspace.Delete(work_file::kRowsBeforeChange);
  }
  CloseOneDiameter(desk);  // it serves the view that closes
  desk.screens.ResultsLeft = false;
  desk.navigator.Close(screen::kResults);
  desk.navigator.Close(screen::kPump);  // one that is open shows the pump from before
  desk.navigator.Show(screen::kPump);
  return PromptEnd::kRecalculated;
}

}  // namespace

WaitingChange FindWaitingChange(const Workbench& bench, const std::vector<SectionRow>& rows) {
  if (!bench.workspace.Exists(work_file::kRowsBeforeChange)) return WaitingChange::kNone;
  const auto& calculated = bench.study.CalculatedDiameters;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i >= calculated.size() || calculated[i] != rows[i].NomiDiam) {
      return WaitingChange::kChanged;
    }
  }
  return WaitingChange::kUnchanged;
}

PromptEnd AskAboutChange(Desk& desk, const std::vector<SectionRow>& rows) {
  switch (desk.bench.Show(message::kChangeWaits)) {
    case Answer::kYes:
      return Recalculate(desk, rows);
    case Answer::kNo:
      if (desk.bench.Show(message::kBringDiametersBack) == Answer::kYes &&
          BringBackRows(desk, work_file::kRowsBeforeChange)) {
        return PromptEnd::kBroughtBack;
      }
      return PromptEnd::kNothing;
    case Answer::kCancel:
    case Answer::kNone:
      break;
  }
  return PromptEnd::kNothing;
}

}  // namespace kalvo

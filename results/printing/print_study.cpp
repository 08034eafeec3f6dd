#include "results/printing/print_study.h"

#include "form/tell.h"
#include "results/designer/designer_name.h"
#include "results/results_session.h"
#include "study/message_codes.h"
#include "study/study_file_names.h"

namespace kalvo {
namespace {

// Whether there is something to print. False: the user was told.
bool HasReport(Desk& desk, ReportKind kind) {
  Workbench& bench = desk.bench;
  const bool results = kind == ReportKind::kResults;
  if (!bench.workspace.HasBytes(work_file::kRows) || (results && !bench.study.results_valid)) {
    bench.Show(results ? message::kNoResults : message::kNoData);
    return false;
  }
  return !results || ResultsHold(desk);
}

void Open(Desk& desk, ReportKind kind) {
  if (!HasReport(desk, kind) || !FillClient(desk)) return;
  desk.screens.ReportKind = static_cast<int>(kind);
  desk.Click();
  desk.navigator.ShowModal(screen::kPrint);
}

}  // namespace

void PrintByChosenRoute(Desk& desk, ReportKind kind) {
  if (!HasReport(desk, kind)) return;
  desk.navigator.ShowModal(screen::kPrintRoute);
  if (desk.screens.RouteExcel || desk.screens.RouteProgram) Open(desk, kind);
}

void PrintBySpreadsheet(Desk& desk, ReportKind kind) {
  desk.screens.RouteExcel = true;
  desk.screens.RouteProgram = false;
  Open(desk, kind);
}

std::string ReportBaseName(const Study& study) {
  return std::string(BaseOf(study.study_path.filename().string()));
}

}  // namespace kalvo

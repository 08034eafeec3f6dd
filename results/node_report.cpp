#include "results/node_report.h"

#include "engine/checks.h"
#include "engine/flow_report.h"
#include "engine/trap.h"
#include "form/tell.h"
#include "study/tables.h"

namespace kalvo {
namespace {

// Refills the tables that the report is made from; while winter's results are looked at, the table
// of emitters is winter's. False: a file cannot be read, which was told.
bool RefreshTables(Workbench& bench, bool winter) {
  const auto rows = bench.workspace.Rows().ReadAll();
  const auto emitters = bench.workspace.Rows(work_file::kEmitters).ReadAll();
  if (!rows || !emitters) {
    TellError(bench, !rows ? rows.error() : emitters.error());
    return false;
  }
  const auto fault = RunTrapped(bench, [&] {
    RefreshSectionTable(bench.study, *rows);
    if (!winter) RefreshEmitterTable(bench.study, *emitters);
  });
  return !fault;
}

void WriteReport(Workbench& bench, bool winter) {
  if (!RefreshTables(bench, winter)) return;
  bool summed = true;
  RunTrapped(bench, [&] { summed = WriteSectionFlows(bench); });
  if (!summed) ShowLostWalk(bench);
}

}  // namespace

void ShowNodeReport(Desk& desk, bool test_single_section) {
  Workbench& bench = desk.bench;
  bench.workspace.Delete(work_file::kFlowReport);
  const bool single = test_single_section && bench.study.SingleSection;
  if (!single && bench.workspace.HasBytes(work_file::kRows))
    WriteReport(bench, desk.screens.WinterPump);
  if (!bench.workspace.Exists(work_file::kFlowReport)) return;
  if (ChooseViewer(desk).empty()) return;
  TellIfFailed(bench, desk.viewer.Open(bench.workspace.Path(work_file::kFlowReport)));
}

}  // namespace kalvo

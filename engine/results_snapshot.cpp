#include "engine/results_snapshot.h"

#include <utility>

#include "engine/kept_results.h"
#include "engine/rerun.h"

namespace kalvo {

namespace {

void TakeOver(Study& study, const ResultsSnapshot& snapshot) {
  study.PipeStats = snapshot.quantities;
  study.TotalFlowM3h = snapshot.total_flow;
  study.PumpHead = snapshot.pump_head;
  study.CriticalDrop = snapshot.critical_drop;
  study.critical_branch = snapshot.critical_branch;
  study.recalculation_needed = snapshot.recalculation_needed;
  study.unsaved_changes = snapshot.unsaved_changes;
}

Outcome WriteQuantities(Workspace& workspace, const ResultsSnapshot& snapshot) {
  if (!snapshot.statistics.empty()) {
    return workspace.Write(work_file::kStatistics, snapshot.statistics);
  }
  if (snapshot.quantities.empty()) {
    return workspace.Remove(work_file::kStatistics);
  }
  return workspace.Rows<StatRow>(work_file::kStatistics).WriteAll(snapshot.quantities);
}

Outcome WriteFollowers(Workspace& workspace, const ResultsSnapshot& snapshot) {
  Outcome written = WriteQuantities(workspace, snapshot);
  if (!written || snapshot.waits || !workspace.HasBytes(work_file::kPreviousRows)) {
    return written;
  }
  return workspace.Copy(work_file::kRows, work_file::kPreviousRows);
}

}  // namespace

Result<ResultsSnapshot> TakeSnapshot(const Workbench& bench) {
  const Workspace& workspace = bench.workspace;
  auto rows = workspace.Rows().ReadAll();
  if (!rows) {
    return rows.error();
  }
  const auto waits = ChangeWaits(workspace);
  if (!waits) {
    return waits.error();
  }
  auto statistics = workspace.Read(work_file::kStatistics);
  const Study& study = bench.study;
  return ResultsSnapshot{.rows = RowTable(*std::move(rows)),
                         .waits = *waits,
                         .quantities = study.PipeStats,
                         .statistics = statistics ? *std::move(statistics) : std::string(),
                         .total_flow = study.TotalFlowM3h,
                         .pump_head = study.PumpHead,
                         .critical_drop = study.CriticalDrop,
                         .critical_branch = study.critical_branch,
                         .recalculation_needed = study.recalculation_needed,
                         .unsaved_changes = study.unsaved_changes};
}

Outcome BringBack(Workbench& bench, const ResultsSnapshot& snapshot) {
  auto file = bench.workspace.Rows();
  auto read = file.ReadAll();
  if (!read) {
    return read.error();
  }
  RowTable rows(*std::move(read));
  if (rows.count() != snapshot.rows.count()) {
    return FileError{file.path(), "Οι εγγραφές είναι άλλες από αυτές που άλλαξαν"};
  }
  CopyKeptResults(snapshot.rows, rows);
  if (Outcome written = file.WriteAll(rows.rows()); !written) {
    return written;
  }
  TakeOver(bench.study, snapshot);
  Outcome followed = WriteFollowers(bench.workspace, snapshot);
  // A later run on the same diameters may have left its rows: the results are not of that run.
  const auto waits = ChangeWaits(bench.workspace);
  const bool forgotten = snapshot.waits && waits && !*waits;
  bench.study.recalculation_needed |= forgotten || !followed.ok();
  return followed;
}

}  // namespace kalvo

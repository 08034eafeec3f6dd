#include "engine/rerun.h"

#include <algorithm>
#include <cmath>

#include "engine/critical.h"
#include "engine/driver.h"
#include "engine/open_network.h"
#include "engine/pipe_stats.h"
#include "engine/sizing.h"
#include "engine/trap.h"

namespace kalvo {

namespace {

// Takes the mark off every row whose diameter is that of the session's first rows again.
void MergeFirstMarks(Workbench& bench) {
  if (!bench.workspace.HasBytes(work_file::kFirstRows)) {
    return;
  }
  const RowStore first(bench.workspace, work_file::kFirstRows);
  RowStore store(bench.workspace);
  const int count = std::min(first.count(), store.count());
  for (int number = 1; number <= count; ++number) {
    SectionRow& row = store.At(number);
    if (std::fabs(row.InDiameter) == first.At(number).InDiameter) {
      row.InDiameter = first.At(number).InDiameter;
    }
  }
  store.Save();
}

void RunFixed(Workbench& bench) {
  bench.study.SingleSection = RowStore(bench.workspace).count() == 1;
  RecalculateRows(bench);
  if (bench.study.CalcStatus == calc_status::kViscosity) {
    return;
  }
  if (bench.study.SystemOpen()) {
    OpenPassFlowOnly(bench);
  } else if (bench.study.SingleSection) {
    CloseSingleSection(bench);
  } else {
    CriticalPassFlowOnly(bench);
  }
  WriteStatistics(bench);
  MergeFirstMarks(bench);
  Require(bench.workspace.Copy(work_file::kRows, work_file::kPreviousRows));
}

}  // namespace

Result<bool> DiametersDiffer(const Workspace& workspace, std::string_view older) {
  const auto before = workspace.Rows(older).ReadAll();
  if (!before) {
    return before.error();
  }
  const auto now = workspace.Rows().ReadAll();
  if (!now) {
    return now.error();
  }
  if (before->empty()) {
    return false;
  }
  return before->size() < now->size() ||
         !std::equal(now->begin(), now->end(), before->begin(),
                     [](const SectionRow& a, const SectionRow& b) {
                       return a.NomiDiam.Trimmed() == b.NomiDiam.Trimmed();
                     });
}

void Rerun(Workbench& bench) {
  Study& study = bench.study;
  study.CalcStatus = calc_status::kNothing;
  study.CalcAborted = false;
  study.unsaved_changes = true;
  study.diameters_changed = true;
  const std::int16_t row_before = study.CurrentRow;
  RunTrapped(bench, [&] { RunFixed(bench); });
  study.CurrentRow = row_before;
  study.CalcAborted = study.CalcStatus == calc_status::kBrokenOff;
  study.recalculation_needed =
      study.CalcStatus == calc_status::kBrokenOff || study.CalcStatus == calc_status::kViscosity;
  study.came_by_recovery = study.came_by_recovery && study.recalculation_needed;
}

Result<bool> RerunIfChanged(Workbench& bench) {
  Result<bool> differ = DiametersDiffer(bench.workspace, work_file::kPreviousRows);
  if (differ && *differ) {
    Rerun(bench);
  }
  return differ;
}

bool HasAllDiameters(const std::vector<SectionRow>& rows) {
  return std::all_of(rows.begin(), rows.end(), [](const SectionRow& row) {
    return !row.NomiDiam.Trimmed().empty() && row.InDiameter != 0.0F;
  });
}

}  // namespace kalvo

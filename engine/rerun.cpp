#include "engine/rerun.h"

#include <algorithm>
#include <cmath>

#include "engine/kept_results.h"
#include "engine/pipe_stats.h"
#include "engine/row_store.h"
#include "engine/trap.h"

namespace kalvo {

namespace {

// What came back to the first rows of the session is as it was there: a row its mark, and once
// every row is back all results.
void ComeBack(Workbench& bench, const RowTable& first, RowTable& rows) {
  if (first.count() != rows.count()) {
    return;
  }
  for (int number = 1; number <= rows.count(); ++number) {
    SectionRow& row = rows.At(number);
    const float diameter = first.At(number).InDiameter;
    if (std::fabs(row.InDiameter) == std::fabs(diameter)) {
      row.InDiameter = diameter;
    }
  }
  if (HaveSameDiameters(first, rows)) {
    TakeKeptResults(bench, first, rows);
  }
}

using ChangeOfRows = std::function<void(RowTable& rows)>;

// `written` follows the rows.
RunEnd RunFixed(Workbench& bench, const ChangeOfRows& change, bool& written) {
  Study& study = bench.study;
  const RowTable first = ReadRows(bench.workspace, work_file::kFirstRows);
  PostponedFile postponed(bench.workspace);
  const auto pass = HoldPassConditions(bench.workspace, study, study.MeanTemp);
  const auto run = [&](RowTable& rows) {
    change(rows);
    if (!pass) return;
    study.SingleSection = rows.count() == 1;
    RecalculateRows(study, rows, *pass);
    FindPressures(study, rows, *pass, Method::kFlowOnly, postponed.Note());
    ComeBack(bench, first, rows);
  };
  ChangeRows(bench, run, [&written] { written = true; });
  if (!pass) {
    TellFluidMisfit(bench);
    return RunEnd::kViscosity;
  }
  WriteStatistics(bench);
  Require(bench.workspace.Copy(work_file::kRows, work_file::kPreviousRows));
  return RunEnd::kCalculated;
}

RunEnd RunFixedTrapped(Workbench& bench, const ChangeOfRows& change, bool& written) {
  Study& study = bench.study;
  const std::int16_t row_before = study.CurrentRow;
  RunEnd end = RunEnd::kCalculated;
  if (RunTrapped(bench, [&] { end = RunFixed(bench, change, written); })) {
    end = RunEnd::kBrokenOff;
  }
  study.CurrentRow = row_before;
  study.CalcAborted = end == RunEnd::kBrokenOff;
  return end;
}

void SettleFlags(Study& study, RunEnd end) {
  study.unsaved_changes = true;
  study.recalculation_needed = end != RunEnd::kCalculated;
  study.came_by_recovery = study.came_by_recovery && study.recalculation_needed;
}

using Rows = std::vector<SectionRow>;

// The rows that the results belong to, none when no file has them. One that is not there is passed
// over only when that is sure.
Result<Rows> CalculatedRows(const Workspace& workspace) {
  for (const char* const file :
       {work_file::kPreviousRows, work_file::kRowsBeforeChange, work_file::kFirstRows}) {
    auto rows = workspace.Rows(file).ReadAll();
    if (!rows || !rows->empty()) return rows;
  }
  return Rows();
}

bool HaveOtherDiameters(const Rows& before, const Rows& now) {
  return before.size() < now.size() ||
         !std::equal(now.begin(), now.end(), before.begin(),
                     [](const SectionRow& a, const SectionRow& b) {
                       return a.NomiDiam.Trimmed() == b.NomiDiam.Trimmed();
                     });
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
  return !before->empty() && HaveOtherDiameters(*before, *now);
}

Result<bool> ChangeWaits(const Workspace& workspace) {
  const auto rows = workspace.Rows().ReadAll();
  if (!rows) {
    return rows.error();
  }
  const auto calculated = CalculatedRows(workspace);
  return !calculated || (!calculated->empty() && HaveOtherDiameters(*calculated, *rows));
}

std::vector<bool> WaitingRows(const Workspace& workspace, std::span<const SectionRow> rows) {
  std::vector<bool> waiting(rows.size(), false);
  const auto calculated = CalculatedRows(workspace);
  if (!calculated) return waiting;
  for (std::size_t i = 0; i < rows.size() && i < calculated->size(); ++i) {
    waiting[i] = rows[i].NomiDiam.Trimmed() != (*calculated)[i].NomiDiam.Trimmed();
  }
  return waiting;
}

RunEnd Rerun(Workbench& bench) {
  bool written = false;
  const RunEnd end = RunFixedTrapped(
      bench, [](RowTable&) {}, written);
  SettleFlags(bench.study, end);
  return end;
}

RunEnd RerunChanged(Workbench& bench, const ChangeOfRows& change) {
  bool written = false;
  const RunEnd end = RunFixedTrapped(bench, change, written);
  if (written) SettleFlags(bench.study, end);
  return end;
}

Result<bool> RerunIfChanged(Workbench& bench) {
  const auto differ = DiametersDiffer(bench.workspace, work_file::kPreviousRows);
  if (!differ) {
    return differ.error();
  }
  const bool failed =
      bench.study.recalculation_needed && bench.workspace.HasBytes(work_file::kPreviousRows);
  if (*differ || failed) {
    Rerun(bench);
  }
  return *differ || failed;
}

bool HasAllDiameters(const std::vector<SectionRow>& rows) {
  return std::all_of(rows.begin(), rows.end(), [](const SectionRow& row) {
    return !row.NomiDiam.Trimmed().empty() && row.InDiameter != 0.0F;
  });
}

}  // namespace kalvo

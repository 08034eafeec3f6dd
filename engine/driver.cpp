#include "engine/driver.h"

#include "engine/balancing.h"
#include "engine/open_network.h"
#include "engine/pipe_stats.h"
#include "engine/row_store.h"
#include "engine/trap.h"
#include "engine/winter_values.h"
#include "study/calculation_boxes.h"
#include "study/rounding.h"
#include "study/tables.h"

namespace kalvo {

namespace {

// The critical branch that a balancing set out from. Its pipes may have been taken down with those
// of other branches, so it is found by sizing a copy of the rows once more; nothing when that does
// not lead to the drop that the rows announce.
std::optional<Branch> ChainBeforeBalancing(const Workbench& bench, const RowTable& rows) {
  const SectionRow& first = rows.At(1);
  Study study = bench.study;
  study.MeanVel = first.MeanVel;
  const auto pass = HoldPassConditions(bench.workspace, study, study.MeanTemp);
  if (!pass) return std::nullopt;
  RowTable sized = rows;
  SizePipes(study, sized, *pass, Method::kFlowAndPressure);
  const CriticalBranch critical = ReadCriticalBranch(study, sized);
  const bool announced =
      ToSingle(RoundTo(critical.drop, 4)) == first.DP || critical.drop == first.DP;
  return announced ? std::optional(critical.chain) : std::nullopt;
}

// The critical branch of the results in the rows, empty without emitters.
Branch ChainOfResults(const Workbench& bench, const RowTable& rows) {
  const bool balanced = rows.count() > 0 && MethodOf(rows.At(1)) == Method::kFlowAndPressure;
  if (balanced) {
    try {
      if (const std::optional<Branch> before = ChainBeforeBalancing(bench, rows)) {
        return *before;
      }
    } catch (const Fault& fault) {
      bench.NoteFault(fault);  // the stored drops serve
    }
  }
  return ReadCriticalBranch(bench.study, rows).chain;
}

// What of the study every row repeats; pressures emptied.
void SetHeaderValues(Study& study, RowTable& rows) {
  study.SectionCount = ToInt16(rows.count());
  // A re-run goes by the row's own word, which may be that of a pipe system chosen before.
  const auto material = FixedText<78>::FromUtf8(study.pipe_material);
  for (SectionRow& row : rows.rows()) {
    row.Material = material;
    row.MeanTemp = study.MeanTemp;
    row.FileNumber = study.pipe_system_number;
    row.MeanVel = study.MeanVel;
    row.PAR = 0;
    row.DP = 0;
    row.AvaiPres = 0;
  }
}

// Pipes and pressures of rows whose results are empty.
using Passes =
    std::function<void(RowTable& rows, const PassConditions& pass, const NotePostponed& note)>;

RunEnd RunOnRows(Workbench& bench, const std::function<void(RowTable& rows)>& reset,
                 const Passes& passes) {
  Study& study = bench.study;
  PostponedFile postponed(bench.workspace);
  std::optional<PassConditions> pass;
  const bool calculates = study.system_kind != SystemKind::kNone;
  const auto run = [&](RowTable& rows) {
    reset(rows);
    if (!calculates) return;
    pass = HoldPassConditions(bench.workspace, study, study.MeanTemp);
    if (!pass) return;
    passes(rows, *pass, postponed.Note());
    KeepCalculatedDiameters(study, rows.rows());
  };
  ChangeRows(bench, run, [&study] { study.results_valid = false; });
  if (!calculates) {
    return RunEnd::kCalculated;
  }
  if (!pass) {
    TellFluidMisfit(bench);
    return RunEnd::kViscosity;
  }
  WriteStatistics(bench);
  // A winter file that cannot be read or written keeps nobody from summer's results.
  if (const Outcome emptied = EmptyWinterResults(bench.workspace); !emptied) {
    bench.Ask(StaleWinterBox(emptied.error()));
  }
  // Rows of a change of diameters that these no longer have anything to do with.
  bench.workspace.Delete(work_file::kPreviousRows);
  bench.workspace.Delete(work_file::kRowsBeforeChange);
  return RunEnd::kCalculated;
}

// What every run leaves of the study, however it ends.
RunEnd RunTrappedOnRows(Workbench& bench, const std::function<RunEnd()>& run) {
  Study& study = bench.study;
  study.CalcAborted = false;
  const std::int16_t row_before = study.CurrentRow;
  // Row 1 has it too; sizing may raise the study's own value for the run.
  const float design_velocity = study.MeanVel;
  RunEnd end = RunEnd::kCalculated;
  if (RunTrapped(bench, [&] { end = run(); })) {
    end = RunEnd::kBrokenOff;
  }
  study.MeanVel = design_velocity;
  study.CalcAborted = end == RunEnd::kBrokenOff;
  study.CurrentRow = row_before;
  if (study.system_kind != SystemKind::kNone && end == RunEnd::kCalculated) {
    study.recalculation_needed = false;
    study.came_by_recovery = false;
  }
  return end;
}

}  // namespace

bool IsLoneSection(const std::vector<SectionRow>& rows) {
  return rows.size() == 1 && rows.front().Name.bytes() == "ANT/ANT";
}

void ResetCalcFields(Study& study, RowTable& rows) {
  SetHeaderValues(study, rows);
  for (SectionRow& row : rows.rows()) {
    row.NomiDiam = {};
  }
}

void CloseSingleSection(Study& study, RowTable& rows) {
  if (!IsLoneSection(rows.rows())) {
    return;
  }
  SectionRow& row = rows.At(1);
  row.PAR = ToSingle(row.WaterFlow / 1000.0);
  row.DP = row.TotalDrop;
  row.AvaiPres = 0;
  study.TotalFlowM3h = row.PAR;
  study.CriticalDrop = row.TotalDrop;
  study.PumpHead = ToSingle(row.TotalDrop / 1000.0);
  study.critical_branch = "1";
}

void FindPressures(Study& study, RowTable& rows, const PassConditions& pass, Method method,
                   const NotePostponed& note) {
  const bool balances = method == Method::kFlowAndPressure;
  if (study.SystemOpen()) {
    balances ? OpenPassPressure(study, rows, pass) : OpenPassFlowOnly(study, rows);
  } else if (study.SingleSection) {
    CloseSingleSection(study, rows);
  } else {
    balances ? CriticalPassPressure(study, rows, pass, note)
             : CriticalPassFlowOnly(study, rows, note);
  }
}

void ChangeRows(Workbench& bench, const std::function<void(RowTable& rows)>& work,
                const std::function<void()>& written) {
  const Study before = bench.study;
  bool saved = false;
  try {
    RowStore store(bench.workspace);
    store.SaveAfter([&] { work(store); },
                    [&] {
                      saved = true;
                      written();
                    });
  } catch (const Fault&) {
    if (!saved) {
      bench.study = before;
    }
    throw;
  }
}

RunEnd RunPasses(Workbench& bench, Method method) {
  Study& study = bench.study;
  study.method = method;
  const auto reset = [&study](RowTable& rows) { ResetCalcFields(study, rows); };
  const auto passes = [&](RowTable& rows, const PassConditions& pass, const NotePostponed& note) {
    SizePipes(study, rows, pass, method);
    FindPressures(study, rows, pass, method, note);
  };
  return RunTrappedOnRows(bench, [&] { return RunOnRows(bench, reset, passes); });
}

RunEnd RunKeepingPipes(Workbench& bench) {
  Study& study = bench.study;
  const auto reset = [&study](RowTable& rows) { SetHeaderValues(study, rows); };
  const auto passes = [&](RowTable& rows, const PassConditions& pass, const NotePostponed& note) {
    const Method recorded = MethodOf(rows.At(1)).value_or(Method::kFlowOnly);
    SizeMissingPipes(study, rows, pass, recorded);
    FindPressures(study, rows, pass, Method::kFlowOnly, note);
  };
  return RunTrappedOnRows(bench, [&] { return RunOnRows(bench, reset, passes); });
}

RunEnd RunCalculation(Workbench& bench) {
  const Study& study = bench.study;
  return RunPasses(bench, study.SystemClosed() ? Method::kFlowOnly : study.method);
}

bool RefindCriticalBranch(Workbench& bench, const RowTable& rows) {
  try {
    bench.study.critical_branch =
        IsLoneSection(rows.rows()) ? "1" : BranchText(ChainOfResults(bench, rows));
  } catch (const Fault& fault) {
    bench.NoteFault(fault);
    return false;
  }
  return !bench.study.critical_branch.empty();
}

bool RefindCriticalBranch(Workbench& bench) {
  const auto rows = bench.workspace.Rows().ReadAll();
  if (!rows) {
    bench.NoteFault(Fault(rows.error()));
    return false;
  }
  return RefindCriticalBranch(bench, RowTable(*rows));
}

}  // namespace kalvo

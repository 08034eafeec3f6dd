#include "engine/driver.h"

#include "engine/balancing.h"
#include "engine/critical.h"
#include "engine/open_network.h"
#include "engine/pipe_stats.h"
#include "engine/sizing.h"
#include "engine/trap.h"
#include "study/memory_disk.h"
#include "study/rounding.h"
#include "study/tables.h"

namespace kalvo {

namespace {

bool Ended(const Study& study) {
  return study.CalcStatus == calc_status::kBrokenOff || study.CalcStatus == calc_status::kViscosity;
}

// Runs a pass unless the run has ended already.
template <typename Pass>
void RunNext(Workbench& bench, Pass&& pass) {
  if (!Ended(bench.study)) {
    RunTrapped(bench, pass);
  }
}

// The pass behind the sizing.
void FindPressures(Workbench& bench, Method method) {
  const bool balances = method == Method::kFlowAndPressure;
  if (bench.study.SystemOpen()) {
    balances ? OpenPassPressure(bench) : OpenPassFlowOnly(bench);
  } else if (bench.study.SingleSection) {
    CloseSingleSection(bench);
  } else {
    balances ? CriticalPassPressure(bench) : CriticalPassFlowOnly(bench);
  }
}

constexpr float kBalancedMethod = 2.0F;  // in INILAMDA

class NobodyThere : public Prompter {
 public:
  Answer ShowMessage(int /*code*/, const Study& /*study*/) override { return Answer::kNone; }
  Answer Ask(const Box& /*box*/) override { return Answer::kNone; }
};

// The critical branch that a balancing set out from. Its pipes may have been taken down with those
// of other branches, so it is found by sizing a copy of the rows once more; nothing when that does
// not lead to the drop that the rows announce.
std::optional<Branch> ChainBeforeBalancing(const Workbench& bench, const RowStore& store) {
  MemoryDisk memory;
  NoWait clock;
  NobodyThere nobody;
  Workspace copy(memory, "/", bench.workspace.outer_disk(), bench.workspace.library_folder(),
                 clock);
  Require(copy.Rows().WriteAll(store.rows()));
  const auto fluid = bench.workspace.Read(work_file::kFluid);
  if (!fluid || !copy.Write(work_file::kFluid, *fluid)) return std::nullopt;
  Study study = bench.study;
  study.MeanVel = store.At(1).MeanVel;
  Workbench sized(study, copy, bench.pipes, nobody);
  SizePipes(sized, static_cast<int>(kBalancedMethod));
  const CriticalBranch critical = ReadCriticalBranch(study, RowStore(copy));
  const bool announced =
      ToSingle(RoundTo(critical.drop, 4)) == store.At(1).DP || critical.drop == store.At(1).DP;
  return announced ? std::optional(critical.chain) : std::nullopt;
}

// The critical branch of the results in the rows, empty without emitters.
Branch ChainOfResults(const Workbench& bench, const RowStore& store) {
  const bool balanced = store.count() > 0 && store.At(1).INILAMDA == kBalancedMethod;
  if (balanced) {
    try {
      if (const std::optional<Branch> before = ChainBeforeBalancing(bench, store)) {
        return *before;
      }
    } catch (const Fault& fault) {
      bench.NoteFault(fault);  // the stored drops serve
    }
  }
  return ReadCriticalBranch(bench.study, store).chain;
}

}  // namespace

bool IsLoneSection(const std::vector<SectionRow>& rows) {
  return rows.size() == 1 && rows.front().Name.bytes() == "ANT/ANT";
}

void ResetCalcFields(Workbench& bench) {
  Study& study = bench.study;
  RowStore store(bench.workspace);
  study.SectionCount = ToInt16(store.count());
  // A re-run goes by the row's own word, which may be that of a pipe system chosen before.
  const auto material = FixedText<78>::FromUtf8(study.pipe_material);
  for (SectionRow& row : store.rows()) {
    row.Material = material;
    row.MeanTemp = study.MeanTemp;
    row.FileNumber = study.pipe_system_number;
    row.MeanVel = study.MeanVel;
    row.PAR = 0;
    row.DP = 0;
    row.AvaiPres = 0;
    row.NomiDiam = {};
  }
  store.Save();
  study.results_valid = false;  // where nothing could be written they stand
}

void CloseSingleSection(Workbench& bench) {
  RowStore store(bench.workspace);
  if (!IsLoneSection(store.rows())) {
    return;
  }
  SectionRow& row = store.At(1);
  row.PAR = ToSingle(row.WaterFlow / 1000.0);
  row.DP = row.TotalDrop;
  row.AvaiPres = 0;
  Study& study = bench.study;
  study.TotalFlowM3h = row.PAR;
  study.CriticalDrop = row.TotalDrop;
  study.PumpHead = ToSingle(row.TotalDrop / 1000.0);
  study.critical_branch = "1";
  store.Save();
}

void RunPasses(Workbench& bench, Method method) {
  Study& study = bench.study;
  study.CalcAborted = false;
  study.MeanVelMode = method == Method::kFlowOnly;
  const std::int16_t row_before = study.CurrentRow;
  // Row 1 has it too; sizing may raise the study's own value for the run.
  const float design_velocity = study.MeanVel;
  RunNext(bench, [&] { ResetCalcFields(bench); });
  if (study.system_kind != SystemKind::kNone) {
    RunNext(bench, [&] { SizePipes(bench, static_cast<int>(method)); });
    RunNext(bench, [&] { FindPressures(bench, method); });
    RunNext(bench, [&] { WriteStatistics(bench); });
    RunNext(bench, [&] { KeepCalculatedDiameters(study, RowStore(bench.workspace).rows()); });
  }
  study.MeanVel = design_velocity;
  study.CalcAborted = study.CalcStatus == calc_status::kBrokenOff;
  study.CurrentRow = row_before;
  if (study.system_kind != SystemKind::kNone && !Ended(study)) {
    study.recalculation_needed = false;
    study.came_by_recovery = false;
  }
}

void RunCalculation(Workbench& bench) {
  const Study& study = bench.study;
  RunPasses(bench, study.SystemClosed() || study.MeanVelMode ? Method::kFlowOnly
                                                             : Method::kFlowAndPressure);
}

bool RefindCriticalBranch(Workbench& bench) {
  try {
    const RowStore store(bench.workspace);
    bench.study.critical_branch =
        IsLoneSection(store.rows()) ? "1" : BranchText(ChainOfResults(bench, store));
  } catch (const Fault& fault) {
    bench.NoteFault(fault);
    return false;
  }
  return !bench.study.critical_branch.empty();
}

}  // namespace kalvo

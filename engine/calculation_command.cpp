#include "engine/calculation_command.h"

#include <utility>

#include "engine/capacity.h"
#include "engine/checks.h"
#include "engine/emitters.h"
#include "engine/flow_report.h"
#include "engine/outlet_flows.h"
#include "engine/row_store.h"
#include "engine/trap.h"
#include "study/tables.h"

namespace kalvo {

namespace {

// Runs a step that may be broken off; true when it was.
template <typename Step>
bool BrokenOff(Workbench& bench, Step&& step) {
  RunTrapped(bench, step);
  return bench.study.CalcStatus == calc_status::kBrokenOff;
}

CommandEnd Abort(Study& study) {
  study.CalcAborted = true;
  study.CalcStatus = calc_status::kNothing;
  return CommandEnd::kBrokenOff;
}

// Asks the capacity question; the end of the command if the answer, or a fault, ends it.
std::optional<CommandEnd> AskCapacity(Workbench& bench) {
  bool go_on = true;
  if (BrokenOff(bench, [&] { go_on = CheckPipeCapacity(bench); })) {
    return Abort(bench.study);
  }
  bench.study.CalcStatus = calc_status::kNothing;
  bench.study.answer = Answer::kNone;
  return go_on ? std::nullopt : std::optional(CommandEnd::kCapacity);
}

CommandEnd Run(Workbench& bench, Method method) {
  Study& study = bench.study;
  RunPasses(bench, method);
  const std::int16_t status = study.CalcStatus;
  study.CalcStatus = calc_status::kNothing;
  if (status == calc_status::kBrokenOff) {
    return CommandEnd::kBrokenOff;
  }
  return status == calc_status::kViscosity ? CommandEnd::kViscosity : CommandEnd::kCalculated;
}

// What decides on the road that the command takes.
struct Network {
  bool lone_section = false;  // of a closed system
  bool has_results = false;   // that stand: an edit since makes them void
};

// The message that keeps the command from starting, 0 when nothing does.
int GateMessage(const Workbench& bench) {
  const Study& study = bench.study;
  const Workspace& workspace = bench.workspace;
  if (!workspace.HasBytes(work_file::kFluid)) return 2005;
  if (study.emitters_unchecked) return 2003;
  if (study.pipe_system_number < 1) return 406;
  if (study.EmitterCount == 0) return 407;
  if (!workspace.Exists(work_file::kRows) && study.CurrentRow != 1) return 139;
  if (!workspace.Exists(work_file::kEmitters)) return study.SystemOpen() ? 143 : 142;
  return study.NameErrors && !study.SystemOpen() ? 10 : 0;
}

// Open names that were changed since they were checked: the feeders' numbers are looked at first.
CommandEnd RefuseOpenNames(Workbench& bench) {
  if (BrokenOff(bench, [&] { CheckFeederNumbers(bench); })) {
    return Abort(bench.study);
  }
  if (std::exchange(bench.study.CalcStatus, calc_status::kNothing) != calc_status::kNothing) {
    return CommandEnd::kFeeders;
  }
  bench.Show(12);
  return CommandEnd::kRefused;
}

// What a check left in the status: the end of the command if it found something.
std::optional<CommandEnd> AfterCheck(Workbench& bench) {
  const std::int16_t status = std::exchange(bench.study.CalcStatus, calc_status::kNothing);
  if (status == calc_status::kNothing) {
    return std::nullopt;
  }
  return status == calc_status::kBrokenOff ? Abort(bench.study) : CommandEnd::kFindings;
}

// The same for a summing of flows, which may lose its way.
std::optional<CommandEnd> AfterSum(Workbench& bench) {
  if (bench.study.CalcStatus > 0) {
    bench.Show(2004);
    bench.study.CalcStatus = calc_status::kNothing;
    if (BrokenOff(bench, [&] { ListLostWalk(bench); })) {
      return Abort(bench.study);
    }
    return CommandEnd::kLost;
  }
  return AfterCheck(bench);
}

std::optional<CommandEnd> CheckClosedNetwork(Workbench& bench) {
  bench.workspace.Delete(work_file::kErrors);
  RunTrapped(bench, [&] { WriteSectionFlows(bench); });
  if (const auto end = AfterSum(bench)) {
    return end;
  }
  RunTrapped(bench, [&] { CheckNodes(bench); });
  return AfterCheck(bench);
}

std::optional<CommandEnd> CheckOpenNetwork(Workbench& bench) {
  bench.workspace.Delete(work_file::kErrors);
  RunTrapped(bench, [&] { CheckFeedersByName(bench); });
  if (const auto end = AfterCheck(bench)) {
    return end;
  }
  RunTrapped(bench, [&] { SumOutletFlows(bench); });
  if (const auto end = AfterSum(bench)) {
    return end;
  }
  RunTrapped(bench, [&] { CheckFeederUse(bench); });
  return AfterCheck(bench);
}

// The question about existing results: an end, or nothing when a new run is wanted.
std::optional<CommandEnd> AskForNewRun(Workbench& bench) {
  bench.Show(190);
  const Answer answer = std::exchange(bench.study.answer, Answer::kNone);
  if (answer == Answer::kYes) {
    return std::nullopt;
  }
  return answer == Answer::kNo ? CommandEnd::kShowOld : CommandEnd::kCancelled;
}

// What comes before the capacity question. A closed network of one section is taken as it stands.
std::optional<CommandEnd> CheckNetwork(Workbench& bench, const Network& network) {
  if (bench.study.SystemOpen()) {
    return CheckOpenNetwork(bench);
  }
  return network.lone_section ? std::nullopt : CheckClosedNetwork(bench);
}

CommandEnd RunAsked(Workbench& bench, const ChooseMethod& choose, bool rebuild) {
  if (const auto end = AskCapacity(bench)) {
    return *end;
  }
  CommandEnd end = CommandEnd::kCancelled;
  choose([&](Method method) {
    const bool broken = rebuild && BrokenOff(bench, [&] { RebuildEmitterData(bench); });
    end = broken ? Abort(bench.study) : Run(bench, method);
  });
  return end;
}

// Reads the rows and refills the table; the end of the command if they cannot be read.
std::optional<CommandEnd> ReadNetwork(Workbench& bench, Network& network) {
  Study& study = bench.study;
  std::vector<SectionRow> rows;
  if (BrokenOff(bench, [&] { rows = RowStore(bench.workspace).rows(); })) {
    return Abort(study);
  }
  study.CalcStatus = calc_status::kNothing;
  study.SingleSection = rows.size() == 1;
  network.lone_section = study.SystemClosed() && IsLoneSection(rows);
  // Rows that came by recovery may have been edited since they were calculated.
  network.has_results = study.results_valid && !study.came_by_recovery && HasResults(rows);
  if (network.lone_section) {
    study.TotalFlowM3h = ToSingle(rows.front().WaterFlow / 1000.0);
  }
  RefreshSectionTable(study, rows);
  return std::nullopt;
}

}  // namespace

bool HasResults(const std::vector<SectionRow>& rows) {
  return !rows.empty() && rows.front().PAR != 0.0F && rows.front().DP != 0.0F;
}

CommandEnd Calculate(Workbench& bench, const ChooseMethod& choose) {
  const Study& study = bench.study;
  if (const int message = GateMessage(bench); message != 0) {
    bench.Show(message);
    return CommandEnd::kRefused;
  }
  Network network;
  if (const auto end = ReadNetwork(bench, network)) {
    return *end;
  }
  if (study.NameErrors && study.SystemOpen()) {
    return RefuseOpenNames(bench);
  }
  if (const auto end = network.has_results ? AskForNewRun(bench) : CheckNetwork(bench, network)) {
    return *end;
  }
  const bool rebuild = study.SystemClosed() && !network.lone_section && !network.has_results;
  return RunAsked(bench, choose, rebuild);
}

CommandEnd Calculate(Workbench& bench, Method method) {
  return Calculate(bench, [method](const RunByMethod& run) { run(method); });
}

}  // namespace kalvo

#include "engine/calculation_command.h"

#include <optional>
#include <utility>

#include "engine/capacity.h"
#include "engine/checks.h"
#include "engine/emitters.h"
#include "engine/flow_report.h"
#include "engine/outlet_flows.h"
#include "engine/row_store.h"
#include "engine/trap.h"
#include "study/message_codes.h"
#include "study/tables.h"

namespace kalvo {

namespace {

CommandEnd Abort(Study& study) {
  study.CalcAborted = true;
  return CommandEnd::kBrokenOff;
}

// Asks the capacity question; the end of the command if the answer, or a fault, ends it.
std::optional<CommandEnd> AskCapacity(Workbench& bench) {
  bool go_on = true;
  if (RunTrapped(bench, [&] { go_on = CheckPipeCapacity(bench); })) {
    return Abort(bench.study);
  }
  return go_on ? std::nullopt : std::optional(CommandEnd::kCapacity);
}

CommandEnd EndOf(RunEnd end) {
  switch (end) {
    case RunEnd::kViscosity:
      return CommandEnd::kViscosity;
    case RunEnd::kBrokenOff:
      return CommandEnd::kBrokenOff;
    case RunEnd::kCalculated:
      break;
  }
  return CommandEnd::kCalculated;
}

// What decides on the road that the command takes.
struct Network {
  bool lone_section = false;              // of a closed system
  bool has_results = false;               // that hold: an edit since makes them void
  std::optional<SummedFlows> flows = {};  // of a closed system, its nodes in order
};

// The message that keeps the command from starting, 0 when nothing does.
int GateMessage(const Workbench& bench) {
  const Study& study = bench.study;
  const Workspace& workspace = bench.workspace;
  if (!workspace.HasBytes(work_file::kFluid)) return message::kNoFluid;
  if (study.emitters_unchecked) return message::kEmittersUnchecked;
  if (study.pipe_system_number < 1) return message::kNoPipeSystem;
  if (study.EmitterCount == 0) return message::kNoEmitters;
  if (!workspace.Exists(work_file::kRows) && study.CurrentRow != 1) return message::kNoData;
  if (!workspace.Exists(work_file::kEmitters))
    return study.SystemOpen() ? message::kNoOutletData : message::kNoEmitterData;
  return study.NameErrors && !study.SystemOpen() ? message::kNamesToBeCorrected : 0;
}

// A check of the names; the end of the command if it found something or was broken off.
std::optional<CommandEnd> Checked(Workbench& bench, CheckEnd (*check)(Workbench&)) {
  CheckEnd end = CheckEnd::kNothing;
  if (RunTrapped(bench, [&] { end = check(bench); })) {
    return Abort(bench.study);
  }
  return end == CheckEnd::kFindings ? std::optional(CommandEnd::kFindings) : std::nullopt;
}

// The same for a summing of flows, which may lose its way.
std::optional<CommandEnd> Summed(Workbench& bench, bool (*sum)(Workbench&)) {
  bool summed = false;
  if (RunTrapped(bench, [&] { summed = sum(bench); })) {
    return Abort(bench.study);
  }
  if (summed) {
    return std::nullopt;
  }
  ShowLostWalk(bench);
  return RunTrapped(bench, [&] { ListLostWalk(bench); }) ? Abort(bench.study) : CommandEnd::kLost;
}

// Open names that were changed since they were checked: the feeders' numbers are looked at first.
CommandEnd RefuseOpenNames(Workbench& bench) {
  if (const auto end = Checked(bench, CheckFeederNumbers)) {
    return *end == CommandEnd::kFindings ? CommandEnd::kFeeders : *end;
  }
  bench.Show(message::kOutletsToBeChecked);
  return CommandEnd::kRefused;
}

std::optional<CommandEnd> CheckClosedNetwork(Workbench& bench, Network& network) {
  const Study& study = bench.study;
  bench.workspace.Delete(work_file::kErrors);
  SummedFlows flows{study.SectionTable, study.EmitterTable, {}};
  if (const auto end = Summed(bench, WriteSectionFlows)) {
    return end;
  }
  if (const auto end = Checked(bench, CheckNodes)) {
    return end;
  }
  flows.after = study.SectionTable;
  network.flows = std::move(flows);
  return std::nullopt;
}

std::optional<CommandEnd> CheckOpenNetwork(Workbench& bench) {
  bench.workspace.Delete(work_file::kErrors);
  if (const auto end = Checked(bench, CheckFeedersByName)) {
    return end;
  }
  if (const auto end = Summed(bench, SumOutletFlows)) {
    return end;
  }
  return Checked(bench, CheckFeederUse);
}

// The question about existing results: an end, or nothing when a new run is wanted.
std::optional<CommandEnd> AskForNewRun(Workbench& bench) {
  const Answer answer = bench.Show(message::kResultsAreThere);
  if (answer == Answer::kYes) {
    return std::nullopt;
  }
  return answer == Answer::kNo ? CommandEnd::kShowOld : CommandEnd::kCancelled;
}

// What comes before the capacity question. A closed network of one section is taken as it stands.
std::optional<CommandEnd> CheckNetwork(Workbench& bench, Network& network) {
  if (bench.study.SystemOpen()) {
    return CheckOpenNetwork(bench);
  }
  return network.lone_section ? std::nullopt : CheckClosedNetwork(bench, network);
}

CommandEnd RunAsked(Workbench& bench, const ChooseRun& choose, const Network& network) {
  if (const auto end = AskCapacity(bench)) {
    return *end;
  }
  const bool rebuild = bench.study.SystemClosed() && !network.lone_section && !network.has_results;
  CommandEnd end = CommandEnd::kCancelled;
  const auto make = [&](const std::function<RunEnd()>& run) {
    const SummedFlows* flows = network.flows ? &*network.flows : nullptr;
    const bool broken =
        rebuild && RunTrapped(bench, [&] { RebuildEmitterData(bench, flows); }).has_value();
    end = broken ? Abort(bench.study) : EndOf(run());
  };
  choose({[&](Method method) { make([&] { return RunPasses(bench, method); }); },
          [&] { make([&] { return RunKeepingPipes(bench); }); }});
  return end;
}

// Reads the rows and refills the table; the end of the command if they cannot be read.
std::optional<CommandEnd> ReadNetwork(Workbench& bench, Network& network) {
  Study& study = bench.study;
  std::vector<SectionRow> rows;
  if (RunTrapped(bench, [&] { rows = Require(bench.workspace.Rows().ReadAll()); })) {
    return Abort(study);
  }
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

CommandEnd Calculate(Workbench& bench, const ChooseRun& choose) {
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
  return RunAsked(bench, choose, network);
}

CommandEnd Calculate(Workbench& bench, Method method) {
  return Calculate(bench, [method](const CalculationRuns& runs) { runs.by_method(method); });
}

}  // namespace kalvo

#include "engine/calculation_command.h"

#include <optional>

#include "engine/capacity.h"
#include "engine/checks.h"
#include "engine/emitters.h"
#include "engine/flow_report.h"
#include "engine/row_store.h"
#include "engine/trap.h"
#include "study/tables.h"

namespace kalvo {

namespace {

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
  return study.NameErrors ? 10 : 0;
}

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

// Flow report and node check of a network without results; the end if they find something.
std::optional<CommandEnd> CheckNetwork(Workbench& bench) {
  Study& study = bench.study;
  if (BrokenOff(bench, [&] { WriteSectionFlows(bench); })) {
    return Abort(study);
  }
  if (study.CalcStatus > 0) {
    bench.Show(2004);
    study.CalcStatus = calc_status::kNothing;
    return CommandEnd::kLost;
  }
  bench.workspace.Delete(work_file::kErrors);
  if (BrokenOff(bench, [&] { CheckNodes(bench); })) {
    return Abort(study);
  }
  if (study.CalcStatus != calc_status::kNothing) {
    study.CalcStatus = calc_status::kNothing;
    return CommandEnd::kFindings;
  }
  return std::nullopt;
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

// A network of one section, or one with results: its rows are calculated as they stand.
CommandEnd RunRowsAsTheyStand(Workbench& bench, Method method) {
  if (const auto end = AskCapacity(bench)) {
    return *end;
  }
  return Run(bench, method);
}

CommandEnd CalculateAnew(Workbench& bench, Method method) {
  if (const auto end = CheckNetwork(bench)) {
    return *end;
  }
  if (const auto end = AskCapacity(bench)) {
    return *end;
  }
  if (BrokenOff(bench, [&] { RebuildEmitterData(bench); })) {
    return Abort(bench.study);
  }
  return Run(bench, method);
}

}  // namespace

bool HasResults(const std::vector<SectionRow>& rows) {
  return !rows.empty() && rows.front().PAR != 0.0F && rows.front().DP != 0.0F;
}

CommandEnd CalculateClosed(Workbench& bench, Method method) {
  Study& study = bench.study;
  if (const int message = GateMessage(bench); message != 0) {
    bench.Show(message);
    return CommandEnd::kRefused;
  }
  std::vector<SectionRow> rows;
  if (BrokenOff(bench, [&] { rows = RowStore(bench.workspace).rows(); })) {
    return Abort(study);
  }
  study.SingleSection = IsLoneSection(rows);
  study.CalcStatus = calc_status::kNothing;
  if (study.SingleSection) {
    study.TotalFlowM3h = ToSingle(rows.front().WaterFlow / 1000.0);
  }
  RefreshSectionTable(study, rows);
  if (HasResults(rows)) {
    if (const auto end = AskForNewRun(bench)) {
      return *end;
    }
  } else if (!study.SingleSection) {
    return CalculateAnew(bench, method);
  }
  return RunRowsAsTheyStand(bench, method);
}

}  // namespace kalvo

#include "cli/study_commands.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <set>

#include "cli/findings.h"
#include "cli/study_run.h"
#include "cli/text_table.h"
#include "engine/checks.h"
#include "engine/flow_report.h"
#include "engine/outlets.h"
#include "engine/trap.h"
#include "study/text_lines.h"

namespace kalvo {

int StudyCommand::Run(const Console& console) {
  Session session(console, Library());
  session.prompter().ignore_capacity = true;
  if (!session.ok() || !session.Load(file_)) {
    return exit_code::kUnreadable;
  }
  return RunOn(console, session);
}

void StudyCommand::AddArguments(CLI::App& app) {
  app.add_option("ΜΕΛΕΤΗ", file_, "Αρχείο μελέτης (.PCK, .PCA)")->required()->type_name("");
  AddLibraryOption(app);
}

namespace {

// Flow report under the trap: false when it was broken off.
bool WriteFlows(Workbench& bench) {
  RunTrapped(bench, [&] { WriteSectionFlows(bench); });
  return bench.study.CalcStatus != calc_status::kBrokenOff;
}

using Check = void (*)(Workbench&);

// Each line once, where it came last: so what explains other findings stands behind them.
std::vector<std::string> EachOnce(const std::vector<std::string>& lines) {
  std::set<std::string_view> seen;
  std::vector<std::string> kept;
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    if (seen.insert(*line).second) {
      kept.push_back(*line);
    }
  }
  std::reverse(kept.begin(), kept.end());
  return kept;
}

// Runs checks one after the other and prints what they find. The exit code.
int PrintChecks(const Console& console, Session& session, std::initializer_list<Check> checks) {
  Workbench bench = session.bench();
  std::vector<std::string> findings;
  int code = exit_code::kDone;
  for (const Check check : checks) {
    session.workspace().Delete(work_file::kErrors);
    session.study().lost_walk.reset();
    session.study().CalcStatus = calc_status::kNothing;
    RunTrapped(bench, [&] {
      check(bench);
      ListLostWalk(bench);
    });
    const std::int16_t status = session.study().CalcStatus;
    if (status != calc_status::kNothing) {
      code = std::max(
          code, status == calc_status::kBrokenOff ? exit_code::kBrokenOff : exit_code::kRefused);
    }
    for (const std::string& line : SplitLines(FindingsText(session))) {
      findings.push_back(line);
    }
  }
  for (const std::string& finding : EachOnce(findings)) {
    PrintWrapped(console, finding);
  }
  return code;
}

}  // namespace

int CheckCommand::RunOn(const Console& console, Session& session) {
  const int code =
      session.study().SystemOpen()
          ? PrintChecks(console, session,
                        {CheckFeedersByName, SumOutletFlows, CheckFeederNumbers, CheckFeederUse})
          : PrintChecks(console, session, {WriteSectionFlows, CheckNodes});
  if (code == exit_code::kDone && !console.quiet) {
    console.out << "... Οι Ονομασίες των Τμημάτων ΔΕΝ δείχνουν να έχουν πρόβλημα ...\n";
  }
  return code;
}

int FlowsCommand::RunOn(const Console& console, Session& session) {
  Workbench bench = session.bench();
  if (session.study().SystemOpen()) {
    return RefuseKind(console, session, file());
  }
  const bool written = WriteFlows(bench);
  if (const auto report = session.workspace().Read(work_file::kFlowReport)) {
    for (const std::string& line : SplitLines(*report)) {
      PrintWrapped(console, line);
    }
  }
  if (!written) {
    return exit_code::kBrokenOff;
  }
  if (session.study().CalcStatus > 0) {
    bench.Show(2004);
    ListLostWalk(bench);
    console.err << FindingsText(session);
    return exit_code::kRefused;
  }
  return exit_code::kDone;
}

}  // namespace kalvo

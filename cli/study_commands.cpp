#include "cli/study_commands.h"

#include <CLI/CLI.hpp>

#include "cli/findings.h"
#include "cli/study_run.h"
#include "cli/text_table.h"
#include "engine/checks.h"
#include "engine/flow_report.h"
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

}  // namespace

int CheckCommand::RunOn(const Console& console, Session& session) {
  const CheckResult result = CheckStudy(session);
  for (const std::string& finding : result.findings) {
    PrintWrapped(console, finding);
  }
  if (result.code == exit_code::kDone && !console.quiet) {
    console.out << "... Οι Ονομασίες των Τμημάτων ΔΕΝ δείχνουν να έχουν πρόβλημα ...\n";
  }
  return result.code;
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

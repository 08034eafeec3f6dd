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
  bool summed = false;
  const auto fault = RunTrapped(bench, [&] { summed = WriteSectionFlows(bench); });
  if (const auto report = session.workspace().Read(work_file::kFlowReport)) {
    for (const std::string& line : SplitLines(*report)) {
      PrintWrapped(console, line);
    }
  }
  if (fault) {
    return exit_code::kBrokenOff;
  }
  if (!summed) {
    ShowLostWalk(bench);
    ListLostWalk(bench);
    console.err << FindingsText(session);
    return exit_code::kRefused;
  }
  return exit_code::kDone;
}

}  // namespace kalvo

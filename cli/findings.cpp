#include "cli/findings.h"

#include <algorithm>
#include <set>

#include "cli/text_table.h"
#include "engine/checks.h"
#include "engine/flow_report.h"
#include "engine/lost_walk.h"
#include "engine/outlet_flows.h"
#include "engine/trap.h"
#include "study/text_lines.h"

namespace kalvo {

namespace {

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

// Runs a check on a list begun anew and adds what it finds. `check` gives whether all is well.
template <typename Check>
void AddFindings(Session& session, CheckResult& result, Check&& check) {
  Workbench bench = session.bench();
  session.workspace().Delete(work_file::kErrors);
  session.study().lost_walk.reset();
  bool well = true;
  const auto fault = RunTrapped(bench, [&] {
    well = check(bench);
    ListLostWalk(bench);
  });
  if (fault || !well) {
    result.code = std::max(result.code, fault ? exit_code::kBrokenOff : exit_code::kRefused);
  }
  for (const std::string& line : SplitLines(FindingsText(session))) {
    result.findings.push_back(line);
  }
}

void AddNameFindings(Session& session, CheckResult& result, CheckEnd (*check)(Workbench&)) {
  AddFindings(session, result,
              [check](Workbench& bench) { return check(bench) == CheckEnd::kNothing; });
}

}  // namespace

CheckResult CheckStudy(Session& session) {
  CheckResult result;
  if (session.study().SystemOpen()) {
    AddNameFindings(session, result, CheckFeedersByName);
    AddFindings(session, result, SumOutletFlows);
    AddNameFindings(session, result, CheckFeederNumbers);
    AddNameFindings(session, result, CheckFeederUse);
  } else {
    AddFindings(session, result, WriteSectionFlows);
    AddNameFindings(session, result, CheckNodes);
  }
  result.findings = EachOnce(result.findings);
  return result;
}

std::string FindingsText(Session& session) {
  const auto list = session.workspace().Read(work_file::kErrors);
  std::string text;
  for (const std::string& line : list ? SplitLines(*list) : std::vector<std::string>{}) {
    text += Printable(line) + "\n";
  }
  return text;
}

int TellLostWalk(const Console& console, const Session& session) {
  const auto lost = FindLostWalk(session.study());
  if (!lost) {
    return exit_code::kDone;
  }
  console.out.flush();
  console.err << console.Alarm("Τα αποτελέσματα ΔΕΝ ισχύουν, το δίκτυο δεν διανύεται") << '\n'
              << Printable(LostWalkText(session.study(), *lost)) << '\n';
  return exit_code::kRefused;
}

}  // namespace kalvo

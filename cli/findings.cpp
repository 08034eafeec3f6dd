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

CheckResult RunChecks(Session& session, std::initializer_list<Check> checks) {
  Workbench bench = session.bench();
  CheckResult result;
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
      result.code = std::max(result.code, status == calc_status::kBrokenOff ? exit_code::kBrokenOff
                                                                            : exit_code::kRefused);
    }
    for (const std::string& line : SplitLines(FindingsText(session))) {
      result.findings.push_back(line);
    }
  }
  result.findings = EachOnce(result.findings);
  return result;
}

}  // namespace

CheckResult CheckStudy(Session& session) {
  return session.study().SystemOpen() ? RunChecks(session, {CheckFeedersByName, SumOutletFlows,
                                                            CheckFeederNumbers, CheckFeederUse})
                                      : RunChecks(session, {WriteSectionFlows, CheckNodes});
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

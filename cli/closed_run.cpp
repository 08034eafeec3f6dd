#include "cli/closed_run.h"

#include "cli/findings.h"
#include "engine/calculation_command.h"
#include "engine/rerun.h"

namespace kalvo {

int CalculateStudy(const Console& console, Session& session, Method method) {
  Workbench bench = session.bench();
  switch (CalculateClosed(bench, method)) {
    case CommandEnd::kCalculated:
    case CommandEnd::kShowOld:
      return exit_code::kDone;
    case CommandEnd::kBrokenOff:
      return exit_code::kBrokenOff;
    case CommandEnd::kFindings:
    case CommandEnd::kLost:
      console.err << FindingsText(session);
      return exit_code::kRefused;
    default:
      return exit_code::kRefused;
  }
}

int CalculateOnFixedDiameters(Session& session) {
  Workbench bench = session.bench();
  const std::vector<SectionRow> rows = session.Rows();
  if (!HasAllDiameters(rows)) {
    bench.Show(140);
    return exit_code::kRefused;
  }
  session.study().SingleSection = rows.size() == 1;
  Rerun(bench);
  switch (session.study().CalcStatus) {
    case calc_status::kBrokenOff:
      return exit_code::kBrokenOff;
    case calc_status::kViscosity:
      return exit_code::kRefused;
    default:
      return exit_code::kDone;
  }
}

bool IsOpenStudy(const Console& console, Session& session, const std::string& file) {
  if (session.study().SystemOpen()) {
    console.err << "Η μελέτη είναι ανοικτού συστήματος : " << file << '\n';
  }
  return session.study().SystemOpen();
}

}  // namespace kalvo

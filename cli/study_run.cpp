#include "cli/study_run.h"

#include "cli/findings.h"
#include "cli/text_table.h"
#include "engine/calculation_command.h"
#include "engine/rerun.h"

namespace kalvo {

int TellBrokenOff(const Console& console, const Session& session) {
  const std::vector<SectionRow> rows = session.Rows();
  const int number = session.study().failed_row;
  if (number >= 1 && number <= static_cast<int>(rows.size())) {
    const SectionRow& row = rows[static_cast<std::size_t>(number - 1)];
    console.err << "Στο Τμήμα " << number << " (" << Printable(row.Name.Utf8()) << ") : παροχή "
                << FormatNumber(row.WaterFlow, console.separators) << " l/h\n";
  }
  return exit_code::kBrokenOff;
}

int RefuseKind(const Console& console, const Session& session, const std::string& file) {
  console.err << (session.study().SystemOpen() ? "Η μελέτη είναι ανοικτού συστήματος : "
                                               : "Η μελέτη είναι κλειστού συστήματος : ")
              << file << '\n';
  return exit_code::kRefused;
}

int CalculateStudy(const Console& console, Session& session, Method method) {
  Workbench bench = session.bench();
  switch (Calculate(bench, method)) {
    case CommandEnd::kCalculated:
    case CommandEnd::kShowOld:
      return exit_code::kDone;
    case CommandEnd::kBrokenOff:
      return TellBrokenOff(console, session);
    case CommandEnd::kFindings:
    case CommandEnd::kLost:
      console.err << FindingsText(session);
      return exit_code::kRefused;
    case CommandEnd::kFeeders:
      console.err << FindingsText(session);
      bench.Show(11);
      return exit_code::kRefused;
    default:
      return exit_code::kRefused;
  }
}

int CalculateOnFixedDiameters(const Console& console, Session& session) {
  Workbench bench = session.bench();
  const std::vector<SectionRow> rows = session.Rows();
  if (!HasAllDiameters(rows)) {
    bench.Show(140);
    return exit_code::kRefused;
  }
  Rerun(bench);
  switch (session.study().CalcStatus) {
    case calc_status::kBrokenOff:
      return TellBrokenOff(console, session);
    case calc_status::kViscosity:
      return exit_code::kRefused;
    default:
      return exit_code::kDone;
  }
}

}  // namespace kalvo

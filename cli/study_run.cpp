#include "cli/study_run.h"

#include "cli/findings.h"
#include "cli/text_table.h"
#include "engine/calculation_command.h"
#include "engine/rerun.h"
#include "study/by_number.h"
#include "study/message_codes.h"

namespace kalvo {

int TellBrokenOff(const Console& console, const Session& session,
                  const std::vector<SectionRow>& rows) {
  constexpr std::size_t kMostSections = 999;  // a branch's text has room for three digits
  if (rows.size() > kMostSections) {
    console.err << "Η μελέτη έχει " << rows.size() << " Τμήματα : υπολογίζονται έως "
                << kMostSections << '\n';
    return exit_code::kBrokenOff;
  }
  const int number = session.study().failed_row;
  if (number >= 1 && number <= static_cast<int>(rows.size())) {
    const SectionRow& row = ByNumber(rows, number);
    const auto text = [&](float value) { return FormatNumber(value, console.separators); };
    console.err << "Στο Τμήμα " << number << " (" << Printable(row.Name.Utf8()) << ") : παροχή "
                << text(row.WaterFlow) << " l/h, Μέση Θερμοκρασία " << text(row.MeanTemp)
                << " °C, ταχύτητα σχεδιασμού " << text(row.MeanVel) << " m/s\n";
  }
  return exit_code::kBrokenOff;
}

int RefuseKind(const Console& console, const Session& session, const std::string& file) {
  console.err << (session.study().SystemOpen() ? "Η μελέτη είναι ανοικτού συστήματος : "
                                               : "Η μελέτη είναι κλειστού συστήματος : ")
              << file << '\n';
  return exit_code::kRefused;
}

namespace {

// The two temperatures that differ.
int TellViscosity(const Console& console, Session& session) {
  const auto fluid = session.workspace().Rows<FluidRow>(work_file::kFluid).Read(1);
  if (fluid) {
    const auto text = [&](float value) { return FormatNumber(value, console.separators); };
    console.err << "Ιξώδες του υγρού στους " << text(fluid->mean_temperature)
                << " °C, Μέση Θερμοκρασία της μελέτης " << text(session.study().MeanTemp)
                << " °C\n";
  }
  return exit_code::kRefused;
}

}  // namespace

int CalculateStudy(const Console& console, Session& session, Method method) {
  Workbench bench = session.bench();
  switch (Calculate(bench, method)) {
    case CommandEnd::kCalculated:
    case CommandEnd::kShowOld:
      return exit_code::kDone;
    case CommandEnd::kBrokenOff:
      return TellBrokenOff(console, session, session.Rows());
    case CommandEnd::kViscosity:
      return TellViscosity(console, session);
    case CommandEnd::kFindings:
    case CommandEnd::kLost:
      console.err << FindingsText(session);
      return exit_code::kRefused;
    case CommandEnd::kFeeders:
      console.err << FindingsText(session);
      bench.Show(message::kNamesToBeChecked);
      return exit_code::kRefused;
    default:
      return exit_code::kRefused;
  }
}

int CalculateOnFixedDiameters(const Console& console, Session& session) {
  Workbench bench = session.bench();
  const std::vector<SectionRow> rows = session.Rows();
  if (!HasAllDiameters(rows)) {
    bench.Show(message::kNoResults);
    return exit_code::kRefused;
  }
  return TellRunEnd(console, session, Rerun(bench));
}

int TellRunEnd(const Console& console, Session& session, RunEnd end) {
  switch (end) {
    case RunEnd::kBrokenOff:
      return TellBrokenOff(console, session, session.Rows());
    case RunEnd::kViscosity:
      return TellViscosity(console, session);
    case RunEnd::kCalculated:
      break;
  }
  return exit_code::kDone;
}

}  // namespace kalvo

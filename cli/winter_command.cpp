#include "cli/winter_command.h"

#include <CLI/CLI.hpp>

#include "cli/report_table.h"
#include "cli/study_run.h"
#include "cli/winter_values.h"
#include "engine/trap.h"

namespace kalvo {

namespace {

// The last winter's values, of the rows that end in an emitter.
void TakeLastWinter(const std::vector<SectionRow>& rows, std::vector<WinterLine>& lines) {
  for (WinterLine& line : lines) {
    const SectionRow& row = rows.at(static_cast<std::size_t>(line.section - 1));
    line.length_m = row.Length;
    line.flow_lh = row.WaterFlow;
    line.drop = row.SomaDrop;
  }
}

int CodeOf(const Console& console, const Session& session, WinterEnd end) {
  switch (end) {
    case WinterEnd::kCalculated:
      return exit_code::kDone;
    case WinterEnd::kBrokenOff:
      return TellBrokenOff(console, session);
    default:
      return exit_code::kRefused;
  }
}

}  // namespace

std::string WinterCommand::Foot() const {
  return "Το --values είναι πίνακας csv με επικεφαλίδα section,flow,drop (και length αν αλλάζει\n"
         "μήκος) ή τμήμα;παροχή;πτώση;μήκος και μία γραμμή για κάθε Σώμα: l/h, mm w.g., m.\n"
         "Η μελέτη πρέπει να έχει αποτελέσματα για το Θέρος. Αυτά δεν αλλάζουν.\n" +
         Command::Foot();
}

void WinterCommand::AddArguments(CLI::App& app) {
  StudyCommand::AddArguments(app);
  app.add_option("--values", values_,
                 "Παροχές και πτώσεις του Χειμώνα, αρχείο csv\n"
                 "(αν δεν ορισθεί: όσα σώθηκαν με τη μελέτη)")
      ->type_name("ΑΡΧΕΙΟ");
  app.add_option("--temperature", temperature_,
                 "Μέση θερμοκρασία του Χειμώνα, 30 έως 100 °C\n"
                 "(αν δεν ορισθεί: όση σώθηκε με τη μελέτη, αλλιώς 70)")
      ->type_name("ΑΡΙΘΜΟΣ");
  app.add_flag("--yes", yes_, "Δέχεται παροχές που δεν είναι μικρότερες από του Θέρους");
  save_.AddTo(app, "Σώζει τη μελέτη μαζί με τον Χειμώνα (.WNT)");
}

int WinterCommand::FindValues(const Console& console, const Session& session,
                              std::vector<WinterLine>& lines) {
  const Workspace& workspace = session.workspace();
  const auto last = workspace.Rows(work_file::kWinter).ReadAll();
  const bool has_last = last && last->size() == session.Rows().size();
  if (temperature_ == kNoTemperature) {
    temperature_ = has_last ? last->front().MeanTemp : kUsualTemperature;
  }
  if (!values_.empty()) {
    auto read = ReadWinterValues(workspace.outer_disk(), values_, lines);
    if (!read) {
      console.err << read.error().Line() << '\n';
      return exit_code::kUnreadable;
    }
    lines = std::move(read).value();
    return exit_code::kDone;
  }
  if (has_last) {
    TakeLastWinter(*last, lines);
    return exit_code::kDone;
  }
  console.err << "Η μελέτη δεν έχει τιμές για τον Χειμώνα : δώστε τις με --values\n";
  return exit_code::kWrongUse;
}

int WinterCommand::RunOn(const Console& console, Session& session) {
  if (session.study().SystemOpen()) {
    return RefuseKind(console, session, file());
  }
  if (!session.study().results_valid) {
    session.bench().Show(403);
    return exit_code::kRefused;
  }
  session.prompter().agrees = yes_;
  Workbench bench = session.bench();
  std::vector<WinterLine> lines;
  RunTrapped(bench, [&] { lines = SummerValues(bench); });
  if (session.study().CalcStatus != calc_status::kNothing) {
    return exit_code::kBrokenOff;
  }
  if (const int code = FindValues(console, session, lines); code != exit_code::kDone) {
    return code;
  }
  if (!save_.MaySave(console, session)) {
    return exit_code::kUnwritable;
  }
  const int code = Calculate(console, session, lines);
  return code == exit_code::kDone ? save_.Save(console, session) : code;
}

int WinterCommand::Calculate(const Console& console, Session& session,
                             const std::vector<WinterLine>& lines) {
  Workbench bench = session.bench();
  WinterDuty winter(bench);
  const WinterOutcome outcome = winter.Run(temperature_, lines);
  if (outcome.end != WinterEnd::kCalculated) {
    return CodeOf(console, session, outcome.end);
  }
  const StudyReport report = MakeWinterReport(session, file(), outcome.critical_branch);
  const Box pump = WinterPumpBox(report.rows.front(), console.separators);
  console.out << console.Heading(pump.title) << '\n';
  for (const std::string& line : pump.lines) {
    console.out << line << '\n';
  }
  console.out << '\n';
  PrintReport(console, report, PressureUnits::kWaterGauge);
  TellAssumedFluid(console, session);
  winter.Close(false);
  return exit_code::kDone;
}

}  // namespace kalvo

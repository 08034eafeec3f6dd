#include "cli/winter_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <optional>

#include "cli/findings.h"
#include "cli/number_text.h"
#include "cli/report_table.h"
#include "cli/study_run.h"
#include "cli/text_table.h"
#include "cli/winter_values.h"
#include "engine/checks.h"
#include "engine/trap.h"
#include "entry/winter/winter_boxes.h"
#include "results/study_report.h"
#include "study/message_codes.h"

namespace kalvo {

namespace {

int TellEnd(const Console& console, Session& session, WinterEnd end) {
  if (end == WinterEnd::kBrokenOff) {
    const auto rows = session.workspace().Rows(work_file::kWinter).ReadAll();
    return TellBrokenOff(console, session, rows ? *rows : session.Rows());
  }
  if (end == WinterEnd::kLost) {
    Workbench bench = session.bench();
    RunTrapped(bench, [&] { ListLostWalk(bench); });
    console.err << FindingsText(session);
  }
  return exit_code::kRefused;
}

// Of emitters within the trunk, whose rows hold sums, and of those that came later.
std::string SectionsWithoutFlow(const std::vector<WinterLine>& lines) {
  std::string sections;
  for (const WinterLine& line : lines) {
    if (line.flow_lh != 0.0F) continue;
    sections += (sections.empty() ? "" : ", ") + std::to_string(line.section);
  }
  return sections;
}

}  // namespace

std::string WinterCommand::Foot() const {
  return "Το --values είναι πίνακας csv με επικεφαλίδα section,flow,drop (και length αν αλλάζει\n"
         "μήκος) ή τμήμα;παροχή;πτώση;μήκος και μία γραμμή για κάθε Σώμα: l/h, mm w.g., m.\n"
         "Η μελέτη πρέπει να έχει αποτελέσματα για το Θέρος. Αυτά δεν αλλάζουν.\n" +
         Subcommand::Foot();
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
      ->check(CLI::Validator(
          [](const std::string& text) { return std::string(text.empty() ? "empty" : ""); }, ""))
      ->type_name("ΑΡΙΘΜΟΣ");
  app.add_flag("--yes", yes_, "Δέχεται παροχές που δεν είναι μικρότερες από του Θέρους");
  save_.AddTo(app, "Σώζει τη μελέτη μαζί με τον Χειμώνα (.WNT)");
}

int WinterCommand::FindValues(const Console& console, Session& session,
                              WinterValues& values) const {
  Workbench bench = session.bench();
  std::optional<WinterValues> last;
  if (RunTrapped(bench, [&] { last = WinterValuesIn(bench, work_file::kWinter); })) {
    return exit_code::kBrokenOff;
  }
  values.temperature = last ? last->temperature : kUsualWinterTemp;
  if (!temperature_.empty()) {
    const std::optional<float> typed = PlainNumber(temperature_);
    if (!typed) {
      console.err << "--temperature : " << Printable(temperature_) << ", δεν είναι αριθμός\n";
      return exit_code::kWrongUse;
    }
    values.temperature = *typed;
  }
  if (!values_.empty()) {
    auto read = ReadWinterValues(bench.workspace.outer_disk(), values_, values.lines);
    if (!read) {
      console.err << read.error().Line() << '\n';
      return exit_code::kUnreadable;
    }
    values.lines = std::move(read).value();
    return exit_code::kDone;
  }
  const std::string unknown = last ? SectionsWithoutFlow(last->lines) : std::string();
  if (last && unknown.empty()) {
    values.lines = std::move(last->lines);
    return exit_code::kDone;
  }
  console.err << "Η μελέτη δεν έχει τιμές για τον Χειμώνα"
              << (last ? ", για τα σώματα των τμημάτων " + unknown : "")
              << " : δώστε τις με --values\n";
  return exit_code::kWrongUse;
}

int WinterCommand::RunOn(const Console& console, Session& session) {
  if (session.study().SystemOpen()) {
    return RefuseKind(console, session, file());
  }
  if (!session.study().results_valid) {
    session.bench().Show(message::kNoSummerResults);
    return exit_code::kRefused;
  }
  session.prompter().agrees = yes_;
  Workbench bench = session.bench();
  WinterValues values;
  if (RunTrapped(bench, [&] { values.lines = SummerValues(bench); })) {
    return exit_code::kBrokenOff;
  }
  if (const int code = FindValues(console, session, values); code != exit_code::kDone) {
    return code;
  }
  if (!save_.MaySave(console, session, Diameters::kKept)) {
    return exit_code::kUnwritable;
  }
  return Calculate(console, session, values);
}

int WinterCommand::Calculate(const Console& console, Session& session,
                             const WinterValues& values) const {
  Workbench bench = session.bench();
  WinterDuty winter(bench);
  const WinterOutcome outcome = winter.Run(
      values.temperature, values.lines, [&bench](const WinterLine& line, float summer_flow_lh) {
        return bench.Ask(WinterFlowBox(line, summer_flow_lh)) == Answer::kYes;
      });
  if (outcome.end == WinterEnd::kBadValue) {
    bench.Ask(WinterZeroBox(values.lines[outcome.line].section, outcome.value));
  }
  if (outcome.end != WinterEnd::kCalculated) {
    return TellEnd(console, session, outcome.end);
  }
  const StudyReport report = MakeWinterReport(bench, file(), outcome.critical_branch);
  winter.Close();
  const Outcome saved = save_.Save(session);
  const Box pump = WinterPumpBox(report.rows.front(), console.separators);
  console.out << console.Heading(pump.title) << '\n';
  for (const std::string& line : pump.lines) {
    console.out << line << '\n';
  }
  console.out << '\n';
  PrintReport(console, report, PressureUnits::kWaterGauge);
  TellAssumedFluid(console, session);
  return save_.Tell(console, saved);
}

}  // namespace kalvo

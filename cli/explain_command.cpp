#include "cli/explain_command.h"

#include <CLI/CLI.hpp>

#include "cli/findings.h"
#include "cli/study_run.h"
#include "cli/text_table.h"
#include "engine/trap.h"
#include "results/explanation_lines.h"
#include "results/study_report.h"

namespace kalvo {

namespace {

enum class Results { kStored, kCalculated };

void PrintSteps(const Console& console, const LongExplanation& lines) {
  TextTable table(
      {{"α/α", ""}, {"Μέγεθος", "", true}, {"Τιμή", ""}, {"Μονάδα", "", true}, {"Τύπος", "", true}},
      2);
  int number = 0;
  for (const auto& [what, value, unit, formula] : lines.steps) {
    table.Add({std::to_string(++number), what, value, unit, formula});
  }
  table.Print(console);
}

void PrintFittings(const Console& console, const LongExplanation& lines) {
  if (lines.fittings.empty()) {
    return;
  }
  console.out << '\n';
  TextTable table({{"Εξαρτήματα", "", true}, {"Πλήθος", ""}, {"ζ", ""}, {"Ισοδύναμο μήκος", "m"}});
  for (const auto& [what, count, zeta, length] : lines.fittings) {
    table.Add({what, count, zeta, length});
  }
  table.Print(console);
}

void PrintShares(const Console& console, const LongExplanation& lines) {
  console.out << '\n';
  TextTable table({{"Μερίδιο στην πτώση", "", true}, {"Πτώση", "mm w.g."}, {"", "%"}});
  for (const auto& [what, drop, percent] : lines.shares) {
    table.Add({what, drop, percent});
  }
  table.Print(console);
}

void PrintExplanation(const Console& console, const SectionRow& row,
                      const DropExplanation& explanation, Results results) {
  console.out << console.Heading("Τμήμα " + std::to_string(row.RecordNumber) + " : " +
                                 row.Name.Utf8() + ", διάμετρος " + row.NomiDiam.Utf8())
              << '\n';
  PrintWrapped(console, (results == Results::kStored ? "Αποθηκευμένα αποτελέσματα, τρόπος "
                                                     : "Νέος υπολογισμός, τρόπος ") +
                            MethodText(MethodOf(row)));
  console.out << '\n';
  const LongExplanation lines = ExplainAtLength(explanation, console.separators);
  PrintSteps(console, lines);
  PrintFittings(console, lines);
  PrintShares(console, lines);
  if (!lines.remark.empty()) {
    console.out << '\n' << lines.remark << '\n';
  }
}

}  // namespace

void ExplainCommand::AddArguments(CLI::App& app) {
  StudyCommand::AddArguments(app);
  app.add_option("ΤΜΗΜΑ", section_, "Αριθμός τμήματος")->required()->type_name("");
  app.add_option("--method", method_,
                 "Νέος υπολογισμός με αυτόν τον τρόπο (αν δεν ορισθεί: τα αποθηκευμένα\n"
                 "αποτελέσματα, ή αν δεν υπάρχουν ο τρόπος 1)")
      ->check(CLI::IsMember({1, 2}).description(""))
      ->type_name("1|2");
}

int ExplainCommand::RunOn(const Console& console, Session& session) {
  if (section_ < 1 || section_ > session.study().SectionCount) {
    const int count = session.study().SectionCount;
    console.err << "Δεν υπάρχει Τμήμα " << section_ << " : η μελέτη έχει " << count
                << (count == 1 ? " Τμήμα\n" : " Τμήματα\n");
    return exit_code::kWrongUse;
  }
  const bool stored = method_ == kNoMethod && session.study().results_valid;
  if (!stored) {
    const Method method = method_ == kNoMethod ? Method::kFlowOnly : static_cast<Method>(method_);
    if (const int code = CalculateStudy(console, session, method); code != exit_code::kDone) {
      return code;
    }
  }
  Workbench bench = session.bench();
  int code = exit_code::kBrokenOff;
  RunTrapped(bench, [&] {
    const auto pass = TakePassConditions(bench);
    if (!pass) {
      code = exit_code::kRefused;
      return;
    }
    const SectionRow row = session.Rows().at(static_cast<std::size_t>(section_ - 1));
    PrintExplanation(console, row, ExplainRow(session.study().system_kind, row, *pass),
                     stored ? Results::kStored : Results::kCalculated);
    TellAssumedFluid(console, session);
    code = TellLostWalk(console, session);
  });
  return code;
}

}  // namespace kalvo

#include "cli/quantities_command.h"

#include <CLI/CLI.hpp>

#include "cli/findings.h"
#include "cli/report_csv.h"
#include "cli/report_json.h"
#include "cli/report_table.h"
#include "cli/study_run.h"
#include "results/quantities.h"

namespace kalvo {

std::string QuantitiesCommand::Foot() const {
  return "Ο πίνακας έχει τις διαμέτρους που χρησιμοποιεί το δίκτυο, το csv και το json όλες.\n"
         "Στο csv η στήλη Water_l είναι το νερό κάθε διαμέτρου σε λίτρα (κλειστό σύστημα).\n" +
         Subcommand::Foot();
}

void QuantitiesCommand::AddArguments(CLI::App& app) {
  StudyCommand::AddArguments(app);
  app.add_option("--method", method_,
                 "Νέος υπολογισμός με αυτόν τον τρόπο (αν δεν ορισθεί: τα αποθηκευμένα\n"
                 "αποτελέσματα, ή αν δεν υπάρχουν ο τρόπος 1)")
      ->check(CLI::IsMember({1, 2}).description(""))
      ->type_name("1|2");
  app.add_flag("--ignore-capacity", ignore_capacity_,
               "Συνεχίζει και αν το Σύστημα Σωλήνων δεν επαρκεί για την ταχύτητα");
  app.add_option("--format", format_, "Μορφή της προμέτρησης (αν δεν ορισθεί: table)")
      ->check(CLI::IsMember({"table", "csv", "json"}).description(""))
      ->type_name("table|csv|json");
}

int QuantitiesCommand::RunOn(const Console& console, Session& session) {
  session.prompter().ignore_capacity = ignore_capacity_;
  const bool stored = method_ == kNoMethod && session.study().results_valid;
  if (!stored) {
    const Method method = method_ == kNoMethod ? Method::kFlowOnly : static_cast<Method>(method_);
    if (const int code = CalculateStudy(console, session, method); code != exit_code::kDone) {
      return code;
    }
  }
  const StudyReport report = MakeReport(session.bench(), file());
  if (report.pipes.empty()) {
    console.err << kNoQuantities << " Νέος υπολογισμός : kalvo quantities " << file()
                << " --method 1\n";
    return exit_code::kRefused;
  }
  Print(console, report);
  if (!stored) {
    TellAssumedFluid(console, session);
  }
  if (!report.recount.empty() && !console.quiet) {
    console.out.flush();
    console.err << report.recount << '\n';
  }
  return TellLostWalk(console, session);
}

void QuantitiesCommand::Print(const Console& console, const StudyReport& report) const {
  if (format_ == "json") {
    console.out << QuantitiesJsonText(report) << '\n';
  } else if (format_ == "csv") {
    PrintQuantitiesCsv(console, report);
  } else {
    PrintQuantities(console, report);
  }
}

}  // namespace kalvo

#include "cli/calc_command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <set>
#include <sstream>

#include "cli/findings.h"
#include "cli/report_csv.h"
#include "cli/report_json.h"
#include "cli/report_table.h"
#include "cli/study_run.h"

namespace kalvo {

namespace {

// On a terminal: how far a batch has come, on a line that goes away again.
class ProgressLine {
 public:
  ProgressLine(const Console& console, const std::string& text) : console_(console) {
    if (Shows()) {
      console_.err << "\r\x1b[K" << text << std::flush;
    }
  }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine() {
    if (Shows()) {
      console_.err << "\r\x1b[K" << std::flush;
    }
  }

 private:
  [[nodiscard]] bool Shows() const { return console_.err_is_terminal && !console_.quiet; }

  const Console& console_;
};

}  // namespace

std::string CalcCommand::Help() const { return "Υπολογίζει μελέτες και δείχνει τα αποτελέσματα"; }

std::string CalcCommand::Foot() const {
  return "Η μελέτη που διαβάζεται δεν αλλάζει, παρά μόνον αν την ορίζει το --save, και\n"
         "υπολογίζεται πάντα εκ νέου. Το --save γράφει όλα τα αρχεία της: .PCK, .STC, .WNT,\n"
         ".LQD του κλειστού συστήματος, .PCA, .STO, .LQD του ανοικτού. Δεν σώζεται μελέτη\n"
         "που δεν υπολογίσθηκε ή δεν διανύεται (κωδικοί εξόδου 3 έως 5).\n"
         "Το csv έχει τα κελιά με \",\" και τα δεκαδικά με \".\". Με --separators \",.\" έχει τα\n"
         "κελιά με \";\" και τα δεκαδικά με \",\", όπως τα ανοίγουν τα ελληνικά λογιστικά φύλλα.\n"
         "Για πολλές μελέτες το csv έχει πρώτη στήλη τη μελέτη και το json είναι ένας πίνακας.\n" +
         Subcommand::Foot();
}

void CalcCommand::AddArguments(CLI::App& app) {
  app.add_option("ΜΕΛΕΤΗ", studies_, "Αρχεία μελετών (.PCK, .PCA)")->required()->type_name("");
  CLI::Option* method =
      app.add_option("--method", method_,
                     "Τρόπος υπολογισμού: 1 (αν δεν ορισθεί) Ρυθμιστικές Βαλβίδες,\n"
                     "2 και Τροποποίηση των Διαμέτρων")
          ->check(CLI::IsMember({1, 2}).description(""))
          ->type_name("1|2");
  app.add_flag("--fixed", fixed_,
               "Νέος υπολογισμός με τις διαμέτρους που έχουν ήδη τα τμήματα\n"
               "(όχι μαζί με --method)")
      ->excludes(method);
  app.add_flag("--ignore-capacity", ignore_capacity_,
               "Συνεχίζει και αν το Σύστημα Σωλήνων δεν επαρκεί για την ταχύτητα");
  save_.AddTo(app,
              "Σώζει τη μελέτη με τα αποτελέσματα σε αυτό το αρχείο ή\n"
              "φάκελο που υπάρχει (για πολλές μελέτες: φάκελος)");
  app.add_option("--format", format_, "Μορφή των αποτελεσμάτων (αν δεν ορισθεί: table)")
      ->check(CLI::IsMember({"table", "csv", "json"}).description(""))
      ->type_name("table|csv|json");
  app.add_option("--units", units_, "Πιέσεις σε mm w.g. (αν δεν ορισθεί), ή και σε kPa, Pa/m")
      ->check(CLI::IsMember({"mmwg", "pa"}).description(""))
      ->type_name("mmwg|pa");
  AddLibraryOption(app);
}

PressureUnits CalcCommand::Units() const {
  return units_ == "pa" ? PressureUnits::kPascal : PressureUnits::kWaterGauge;
}

bool CalcCommand::IsWrongUse(const Console& console) const {
  if (studies_.size() == 1 || !save_.wanted()) {
    return false;
  }
  std::error_code error;
  if (!std::filesystem::is_directory(save_.place(), error)) {
    console.err << "Με πολλές μελέτες το --save είναι φάκελος που υπάρχει : " << save_.place()
                << '\n';
    return true;
  }
  std::set<std::filesystem::path> targets;
  for (const std::string& study : studies_) {
    if (!targets.insert(SaveTarget(save_.place(), study)).second) {
      console.err << "Δύο μελέτες θα σώζονταν με το ίδιο όνομα : " << study << '\n';
      return true;
    }
  }
  return false;
}

int CalcCommand::Run(const Console& console) {
  if (IsWrongUse(console)) {
    return exit_code::kWrongUse;
  }
  int worst = exit_code::kDone;
  if (studies_.size() == 1) {
    worst = RunOne(console, studies_.front());
  } else {
    for (std::size_t i = 0; i < studies_.size(); ++i) {
      worst = std::max(worst, RunInBatch(console, i));
    }
  }
  PrintFoot(console);
  return worst;
}

// What the study has to tell comes in one piece, its messages under its name.
int CalcCommand::RunInBatch(const Console& console, std::size_t index) {
  const std::string& file = studies_[index];
  std::ostringstream out;
  std::ostringstream err;
  int code = exit_code::kDone;
  {
    const ProgressLine progress(
        console, std::to_string(index + 1) + "/" + std::to_string(studies_.size()) + "  " + file);
    code = RunOne(console.On(out, err), file);
  }
  console.out << out.str();
  if (!err.str().empty()) {
    console.out.flush();
    const std::string heading = file + " :";
    console.err << (code == exit_code::kDone ? heading : console.Alarm(heading)) << '\n'
                << err.str();
  }
  return code;
}

int CalcCommand::RunOne(const Console& console, const std::string& file) {
  Session session(console, Library());
  session.prompter().ignore_capacity = ignore_capacity_;
  if (!session.ok() || !session.Load(file)) {
    return exit_code::kUnreadable;
  }
  if (!save_.MaySave(console, session, fixed_ ? Diameters::kKept : Diameters::kSizedAnew)) {
    return exit_code::kUnwritable;
  }
  const bool had_results = session.study().results_valid;
  const int code = fixed_ ? CalculateOnFixedDiameters(console, session)
                          : CalculateStudy(console, session, static_cast<Method>(method_));
  if (code != exit_code::kDone) {
    return code;
  }
  session.study().results_valid = true;  // told or saved here, they count as shown
  StudyReport report = MakeReport(session.bench(), file);
  report.fixed_diameters = fixed_;
  // What does not hold is shown and not saved.
  const Outcome saved = report.lost_walk ? Outcome(Done{}) : save_.Save(session);
  Print(console, report);
  TellAssumedFluid(console, session);
  if (const int lost = TellLostWalk(console, session); lost != exit_code::kDone) {
    save_.TellNotSaved(console);
    return lost;
  }
  if (had_results && !console.quiet) {
    TellFindings(console, file);
  }
  return save_.Tell(console, saved);
}

// Rows that have results are calculated as they stand, unchecked.
void CalcCommand::TellFindings(const Console& console, const std::string& file) const {
  Session checked(console, Library());
  if (checked.Load(file) && !CheckStudy(checked).findings.empty()) {
    console.out.flush();
    console.err << "Ο έλεγχος του δικτύου βρίσκει λάθη, τα αποτελέσματα δεν ισχύουν : kalvo check "
                << file << '\n';
  }
}

void CalcCommand::Print(const Console& console, const StudyReport& report) {
  const bool first = printed_++ == 0;
  if (format_ == "json") {
    reports_.push_back(report);
  } else if (format_ == "csv") {
    const CsvReport csv(console, Units(), studies_.size() > 1);
    if (first) {
      csv.PrintHead();
    }
    csv.Print(report);
  } else {
    console.out << (first ? "" : "\n");
    PrintReport(console, report, Units());
  }
}

void CalcCommand::PrintFoot(const Console& console) const {
  const bool many = studies_.size() > 1;
  if (format_ == "json" && (many || !reports_.empty())) {
    console.out << JsonText(reports_, Units(), many) << '\n';
  }
}

}  // namespace kalvo

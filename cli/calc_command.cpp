#include "cli/calc_command.h"

#include <algorithm>

#include "cli/findings.h"
#include "cli/report_csv.h"
#include "cli/report_json.h"
#include "cli/report_table.h"
#include "engine/calculation_command.h"
#include "engine/rerun.h"
#include "study/study_reset.h"
#include "study/write_study.h"

namespace kalvo {

namespace {

int ExitCodeOf(CommandEnd end) {
  switch (end) {
    case CommandEnd::kCalculated:
    case CommandEnd::kShowOld:
      return exit_code::kDone;
    case CommandEnd::kBrokenOff:
      return exit_code::kBrokenOff;
    default:
      return exit_code::kRefused;
  }
}

}  // namespace

std::string CalcCommand::Help() const {
  return "Υπολογίζει μελέτες κλειστού συστήματος και δείχνει τα αποτελέσματα";
}

void CalcCommand::AddArguments(CLI::App& app) {
  app.add_option("STUDY", studies_, "Αρχεία μελετών (.PCK)")->required()->type_name("");
  method_option_ =
      app.add_option("--method", method_,
                     "Τρόπος υπολογισμού: 1 μόνον με την παροχή, 2 και με την διαθέσιμη πίεση")
          ->check(CLI::IsMember({1, 2}).description(""))
          ->type_name("1|2");
  app.add_flag("--fixed", fixed_, "Νέος υπολογισμός με τις διαμέτρους που έχουν ήδη τα τμήματα")
      ->excludes(method_option_);
  app.add_flag("--ignore-capacity", ignore_capacity_,
               "Συνεχίζει και αν το Σύστημα Σωλήνων δεν επαρκεί για την ταχύτητα");
  app.add_option("--save", save_,
                 "Σώζει τη μελέτη με τα αποτελέσματα (για πολλές μελέτες: φάκελος)")
      ->type_name("PATH");
  app.add_flag("--overwrite", overwrite_, "Το --save μπορεί να αντικαταστήσει άλλη μελέτη");
  app.add_option("--format", format_, "Μορφή των αποτελεσμάτων")
      ->check(CLI::IsMember({"table", "csv", "json"}).description(""))
      ->type_name("table|csv|json");
  app.add_option("--units", units_, "mmwg: mm w.g., pa: και kPa, Pa/m")
      ->check(CLI::IsMember({"mmwg", "pa"}).description(""))
      ->type_name("mmwg|pa");
  AddLibraryOption(app);
}

PressureUnits CalcCommand::Units() const {
  return units_ == "pa" ? PressureUnits::kPascal : PressureUnits::kWaterGauge;
}

bool CalcCommand::IsWrongUse(const Console& console) const {
  std::error_code error;
  if (studies_.size() > 1 && !save_.empty() && !std::filesystem::is_directory(save_, error)) {
    console.err << "Με πολλές μελέτες το --save είναι φάκελος που υπάρχει : " << save_ << '\n';
    return true;
  }
  return false;
}

int CalcCommand::Run(const Console& console) {
  if (IsWrongUse(console)) {
    return exit_code::kWrongUse;
  }
  PrintHead(console);
  const bool shows_progress = console.err_is_terminal && !console.quiet && studies_.size() > 1;
  int worst = exit_code::kDone;
  for (std::size_t i = 0; i < studies_.size(); ++i) {
    if (shows_progress) {
      console.err << "\r\x1b[K" << i + 1 << "/" << studies_.size() << "  " << studies_[i]
                  << std::flush;
    }
    worst = std::max(worst, RunOne(console, studies_[i]));
  }
  if (shows_progress) {
    console.err << "\r\x1b[K" << std::flush;
  }
  PrintFoot(console);
  return worst;
}

int CalcCommand::RunOne(const Console& console, const std::string& file) {
  Session session(console, Library());
  session.prompter().ignore_capacity = ignore_capacity_;
  if (!session.ok() || !session.Load(file)) {
    return exit_code::kUnreadable;
  }
  if (session.study().SystemOpen()) {
    console.err << "Η μελέτη είναι ανοικτού συστήματος : " << file << '\n';
    return exit_code::kUnreadable;
  }
  const std::filesystem::path source = session.study().study_path;
  if (const int code = fixed_ ? CalculateFixed(session) : Calculate(console, session);
      code != exit_code::kDone) {
    return code;
  }
  session.study().results_valid = true;
  Print(console, MakeReport(session, file));
  return save_.empty() ? exit_code::kDone : Save(console, session, source);
}

int CalcCommand::Calculate(const Console& console, Session& session) const {
  Workbench bench = session.bench();
  const CommandEnd end = CalculateClosed(bench, static_cast<Method>(method_));
  if (end == CommandEnd::kFindings || end == CommandEnd::kLost) {
    PrintFindings(console.err, session);
  }
  return ExitCodeOf(end);
}

int CalcCommand::CalculateFixed(Session& session) const {
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

std::filesystem::path CalcCommand::TargetOf(const std::filesystem::path& source) const {
  const std::filesystem::path target = studies_.size() > 1
                                           ? std::filesystem::path(save_) / source.filename()
                                           : std::filesystem::path(save_);
  return WithExtension(target, SystemKind::kClosed);
}

int CalcCommand::Save(const Console& console, Session& session,
                      const std::filesystem::path& source) const {
  const std::filesystem::path target = TargetOf(source);
  std::error_code error;
  if (std::filesystem::exists(target, error) && !overwrite_ &&
      !std::filesystem::equivalent(target, source, error)) {
    console.err << "Το Αρχείο αυτό, υπάρχει ήδη (--overwrite το αντικαθιστά) : " << target.string()
                << '\n';
    return exit_code::kUnwritable;
  }
  session.study().study_path = target;
  Workbench bench = session.bench();
  if (const Outcome saved = WriteStudy(bench); !saved) {
    console.err << "Η μελέτη ΔΕΝ σώθηκε. " << saved.error().Line() << '\n';
    return exit_code::kUnwritable;
  }
  return exit_code::kDone;
}

void CalcCommand::PrintHead(const Console& console) const {
  if (format_ == "csv") {
    CsvReport(console, Units(), studies_.size() > 1).PrintHead();
  }
}

void CalcCommand::Print(const Console& console, const StudyReport& report) {
  if (format_ == "csv") {
    CsvReport(console, Units(), studies_.size() > 1).Print(report);
  } else if (format_ == "json") {
    reports_.push_back(report);
  } else {
    PrintReport(console, report, Units());
    if (studies_.size() > 1) {
      console.out << '\n';
    }
  }
}

void CalcCommand::PrintFoot(const Console& console) const {
  if (format_ != "json") {
    return;
  }
  nlohmann::ordered_json all = nlohmann::ordered_json::array();
  for (const StudyReport& report : reports_) {
    all.push_back(JsonOf(report, Units()));
  }
  if (studies_.size() > 1) {
    console.out << all.dump(2) << '\n';
  } else if (!all.empty()) {
    console.out << all.front().dump(2) << '\n';
  }
}

}  // namespace kalvo

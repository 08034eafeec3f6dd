#include "cli/diameters_command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <set>

#include "cli/comparison_report.h"
#include "cli/findings.h"
#include "cli/study_run.h"
#include "cli/text_table.h"
#include "engine/lost_walk.h"
#include "engine/rerun.h"
#include "engine/winter_values.h"
#include "study/message_codes.h"

namespace kalvo {

namespace {

struct Wanted {
  int section = 0;
  std::string name;  ///< of the size
};

// "12=DN 25"; section 0 for a text that is none.
Wanted WantedIn(const std::string& text) {
  const std::size_t sign = text.find('=');
  if (sign == std::string::npos) return {};
  Wanted wanted{0, text.substr(sign + 1)};
  const char* end = text.data() + sign;
  if (std::from_chars(text.data(), end, wanted.section).ptr != end) return {};
  return wanted;
}

std::string SizeNames(const std::vector<PipeRow>& library) {
  std::string names;
  for (const PipeRow& pipe : library) {
    names += (names.empty() ? "" : ", ") + pipe.nominal_diameter.Utf8();
  }
  return names;
}

}  // namespace

std::string DiametersCommand::Foot() const {
  return "Η μελέτη πρέπει να έχει αποτελέσματα. Τα ονόματα των διαμέτρων είναι του Συστήματος\n"
         "Σωλήνων της (kalvo pipes N). Η μελέτη που διαβάζεται δεν αλλάζει, παρά μόνον αν την\n"
         "ορίζει το --save.\n"
         "Παράδειγμα: kalvo diameters Κτίριο.PCK --set 12=2 --set 13=2\n" +
         Subcommand::Foot();
}

void DiametersCommand::AddArguments(CLI::App& app) {
  StudyCommand::AddArguments(app);
  app.add_option("--set", wanted_, "Τμήμα και ονομαστική του διάμετρος, όσες φορές χρειάζεται")
      ->required()
      ->type_name("N=ΔΙΑΜΕΤΡΟΣ");
  save_.AddTo(app, "Σώζει τη μελέτη με τις νέες διαμέτρους");
  app.add_option("--format", format_, "Μορφή της σύγκρισης (αν δεν ορισθεί: table)")
      ->check(CLI::IsMember({"table", "csv", "json"}).description(""))
      ->type_name("table|csv|json");
}

int DiametersCommand::FindChanges(const Console& console, const Session& session,
                                  std::vector<DiameterChange>& changes) const {
  const auto library = ReadPipeSystem(session.workspace(), session.study().pipe_system_number);
  if (!library) {
    console.err << library.error().Line() << '\n';
    return exit_code::kUnreadable;
  }
  const auto refuse = [&console](const std::string& text, const std::string& why) {
    console.err << "--set " << Printable(text) << " : " << why << '\n';
    return exit_code::kWrongUse;
  };
  std::set<int> sections;
  for (const std::string& text : wanted_) {
    const Wanted wanted = WantedIn(text);
    if (wanted.section < 1 || wanted.section > session.study().SectionCount) {
      return refuse(text, "δεν υπάρχει αυτό το τμήμα");
    }
    const auto pipe = std::ranges::find_if(*library, [&wanted](const PipeRow& known) {
      return known.nominal_diameter.Utf8() == wanted.name;
    });
    if (pipe == library->end()) {
      return refuse(text, "δεν υπάρχει αυτή η διάμετρος. Υπάρχουν : " + SizeNames(*library));
    }
    if (!sections.insert(wanted.section).second) {
      return refuse(text, "το τμήμα έχει δύο διαμέτρους");
    }
    changes.push_back({{wanted.section}, *pipe});
  }
  return exit_code::kDone;
}

int DiametersCommand::RunOn(const Console& console, Session& session) {
  Workbench bench = session.bench();
  if (!session.study().results_valid || !HasAllDiameters(session.Rows())) {
    bench.Show(message::kNoResults);
    return exit_code::kRefused;
  }
  std::vector<DiameterChange> changes;
  if (const int code = FindChanges(console, session, changes); code != exit_code::kDone) {
    return code;
  }
  if (!save_.MaySave(console, session, Diameters::kKept)) {
    return exit_code::kUnwritable;
  }
  // The study as it was read is what a row may come back to.
  if (const Outcome kept = bench.workspace.Copy(work_file::kRows, work_file::kFirstRows); !kept) {
    console.err << kept.error().Line() << '\n';
    return exit_code::kBrokenOff;
  }
  const ChangeOutcome outcome = ChangeDiameters(bench, changes);
  if (const int code = TellRunEnd(console, session, outcome.end); code != exit_code::kDone) {
    return code;
  }
  if (!outcome.comparison) {
    return exit_code::kBrokenOff;
  }
  if (const Outcome emptied = outcome.replaced > 0 ? EmptyWinterResults(bench.workspace) : Done{};
      !emptied) {
    console.err << emptied.error().Line() << '\n';
    return exit_code::kBrokenOff;
  }
  session.study().results_valid = true;  // told or saved here, they count as shown
  const bool holds = !FindLostWalk(session.study());
  const Outcome saved = holds ? save_.Save(session) : Outcome(Done{});
  Print(console, session, *outcome.comparison);
  TellAssumedFluid(console, session);
  if (const int lost = TellLostWalk(console, session); lost != exit_code::kDone) {
    save_.TellNotSaved(console);
    return lost;
  }
  return save_.Tell(console, saved);
}

void DiametersCommand::Print(const Console& console, const Session& session,
                             const ResultComparison& comparison) const {
  const bool closed = session.study().SystemClosed();
  if (format_ == "json") {
    console.out << ComparisonJson(file(), comparison, closed) << '\n';
  } else if (format_ == "csv") {
    PrintComparisonCsv(console, comparison);
  } else {
    PrintComparison(console, comparison, closed);
  }
}

}  // namespace kalvo

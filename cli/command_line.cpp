#include "cli/command_line.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <new>

#include "cli/calc_command.h"
#include "cli/copy_command.h"
#include "cli/diameters_command.h"
#include "cli/explain_command.h"
#include "cli/export_command.h"
#include "cli/greek_help.h"
#include "cli/library_commands.h"
#include "cli/outlets_command.h"
#include "cli/quantities_command.h"
#include "cli/report_command.h"
#include "cli/show_command.h"
#include "cli/study_commands.h"
#include "cli/winter_command.h"
#include "study/real_disk.h"
#include "study/result.h"

namespace kalvo {

namespace {

constexpr const char* kAbout =
    "Kalvoflume: υπολογισμός δικτύων σωλήνων με υγρό, από τη γραμμή εντολών";

constexpr const char* kFoot =
    "kalvo ΕΝΤΟΛΗ --help : τα ορίσματα μιας εντολής\n"
    "Κωδικοί εξόδου: 0 έγινε, 2 λανθασμένη χρήση, 3 η μελέτη δεν διαβάζεται,\n"
    "4 δεν επιτρέπεται, ο έλεγχος βρήκε λάθη, ή το δίκτυο δεν διανύεται,\n"
    "5 ο υπολογισμός διακόπηκε, 6 το αποτέλεσμα δεν γράφεται.\n"
    "Τα μηνύματα βγαίνουν στην έξοδο σφαλμάτων.\n"
    "Παραδείγματα:\n"
    "  kalvo calc Κτίριο.PCK\n"
    "  kalvo calc Κτίριο.PCK --method 2 --save Κτίριο2.PCK\n"
    "  kalvo calc *.PCK --format csv --separators ,. > μελέτες.csv\n"
    "  kalvo explain Κτίριο.PCK 12";

bool ReadSeparators(const std::string& text, Console& console) {
  if (text.empty()) {
    return true;
  }
  const auto usual = [](char c) { return c == ',' || c == '.'; };
  if (text.size() != 2 || text[0] == text[1] || !usual(text[0]) || !usual(text[1])) {
    return false;
  }
  console.separators = {text[0], text[1]};
  console.csv_separators = console.separators;
  return true;
}

class Program {
 public:
  Program(Console console, std::vector<std::string> arguments)
      : console_(console), arguments_(std::move(arguments)) {
    app_.formatter(GreekHelp());
    app_.footer(kFoot);
    app_.option_defaults()->group("Επιλογές");
    app_.set_help_flag("-h,--help", "Δείχνει αυτή τη βοήθεια");
    app_.require_subcommand(1);
    app_.fallthrough();
    app_.add_flag("--quiet", console_.quiet, "Χωρίς παρατηρήσεις και πρόοδο");
    app_.add_option("--separators", separators_,
                    "Διαχωριστικά δεκαδικών και χιλιάδων, \",.\" ή \".,\"\n"
                    "(αν δεν ορισθούν: του συστήματος, στο csv \".,\")")
        ->type_name("ΔΧ");
    app_.set_version_flag("--version", "kalvo " KALVO_VERSION, "Δείχνει την έκδοση");
    Add<CalcCommand>();
    Add<CheckCommand>();
    Add<ShowCommand>();
    Add<FlowsCommand>();
    Add<OutletsCommand>();
    Add<ExplainCommand>();
    Add<QuantitiesCommand>();
    Add<ReportCommand>();
    Add<DiametersCommand>();
    Add<ExportCommand>();
    Add<CopyCommand>();
    Add<WinterCommand>();
    Add<PipesCommand>();
    Add<FluidsCommand>();
  }

  int Run() {
    std::reverse(arguments_.begin(), arguments_.end());  // as CLI11 wants them
    try {
      app_.parse(std::move(arguments_));
    } catch (const CLI::CallForHelp&) {
      console_.out << app_.help();
      return exit_code::kDone;
    } catch (const CLI::CallForVersion& version) {
      console_.out << version.what() << '\n';
      return exit_code::kDone;
    } catch (const CLI::ParseError& error) {
      return WrongUse(WhatIsWrong(error, app_));
    }
    if (!ReadSeparators(separators_, console_)) {
      return WrongUse("--separators : " + separators_ + " , επιτρέπονται \",.\" ή \".,\"");
    }
    const auto given = std::find_if(commands_.begin(), commands_.end(),
                                    [](const auto& entry) { return entry.first->parsed(); });
    return given->second->Run(console_);
  }

 private:
  template <typename CommandType>
  void Add() {
    auto command = std::make_unique<CommandType>();
    CLI::App* app = command->AddTo(app_, arguments_);
    commands_.emplace_back(app, std::move(command));
  }

  [[nodiscard]] int WrongUse(const std::string& what) {
    const auto given = app_.get_subcommands();
    const std::string command = given.empty() ? "" : given.front()->get_name() + " ";
    console_.err << console_.Alarm(what) << "\nΒοήθεια : kalvo " << command << "--help\n";
    return exit_code::kWrongUse;
  }

  Console console_;
  std::vector<std::string> arguments_;
  CLI::App app_{kAbout, "kalvo"};
  std::string separators_;
  std::vector<std::pair<CLI::App*, std::unique_ptr<Subcommand>>> commands_;
};

}  // namespace

int RunCommandLine(std::vector<std::string> arguments, Console console) {
  try {
    return Program(console, std::move(arguments)).Run();
  } catch (const std::exception& error) {
    console.err << "Απρόβλεπτο σφάλμα : " << ReasonFor(error) << '\n';
    return exit_code::kBrokenOff;
  }
}

}  // namespace kalvo

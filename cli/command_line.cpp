#include "cli/command_line.h"

#include <algorithm>
#include <memory>

#include "cli/calc_command.h"
#include "cli/library_commands.h"
#include "cli/study_commands.h"

namespace kalvo {

namespace {

constexpr const char* kAbout =
    "Kalvoflume: υπολογισμός δικτύων σωλήνων με υγρό, από τη γραμμή εντολών";

constexpr const char* kFoot =
    "Κωδικοί εξόδου: 0 έγινε, 2 λανθασμένη χρήση, 3 η μελέτη δεν διαβάζεται,\n"
    "4 ο υπολογισμός δεν επιτρέπεται, 5 διακόπηκε, 6 το αποτέλεσμα δεν γράφεται.\n"
    "Παραδείγματα:\n"
    "  kalvo calc Κτίριο.PCK\n"
    "  kalvo calc Κτίριο.PCK --method 2 --save Κτίριο2.PCK\n"
    "  kalvo calc *.PCK --format csv --separators ,. > μελέτες.csv\n"
    "  kalvo explain Κτίριο.PCK 12";

// CLI11's headings in Greek.
std::shared_ptr<CLI::Formatter> GreekFormatter() {
  auto formatter = std::make_shared<CLI::Formatter>();
  formatter->column_width(26);
  formatter->label("Usage", "Χρήση");
  formatter->label("OPTIONS", "ΕΠΙΛΟΓΕΣ");
  formatter->label("Options", "Επιλογές");
  formatter->label("Positionals", "Ορίσματα");
  formatter->label("SUBCOMMAND", "ΕΝΤΟΛΗ");
  formatter->label("Subcommands", "Εντολές");
  formatter->label("REQUIRED", "(απαιτείται)");
  formatter->label("TEXT", "ΚΕΙΜΕΝΟ");
  formatter->label("Excludes", "Όχι μαζί με");
  return formatter;
}

std::string WhatIsWrong(const CLI::ParseError& error, const CLI::App& program) {
  const std::string name = error.get_name();
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
    std::string rest;
    for (const std::string& word : program.remaining(true)) {
      rest += " " + word;
    }
    return "Άγνωστο όρισμα :" + rest;
  }
  if (name == "RequiredError") return "Λείπει απαραίτητο όρισμα";
  if (name == "ExcludesError") return "Οι επιλογές --fixed και --method δεν δίνονται μαζί";
  if (name == "ConversionError") return "Όρισμα που δεν είναι αριθμός";
  if (name == "ValidationError") return "Τιμή που δεν επιτρέπεται";
  if (name == "ArgumentMismatch") return "Λείπει η τιμή μιας επιλογής";
  return "Λανθασμένη χρήση";
}

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
  explicit Program(Console console) : console_(console) {
    app_.formatter(GreekFormatter());
    app_.footer(kFoot);
    app_.option_defaults()->group("Επιλογές");
    app_.set_help_flag("-h,--help", "Δείχνει αυτή τη βοήθεια");
    app_.require_subcommand(1);
    app_.fallthrough();
    app_.add_flag("--quiet", console_.quiet, "Χωρίς παρατηρήσεις και πρόοδο");
    app_.add_option("--separators", separators_,
                    "Διαχωριστικά δεκαδικών και χιλιάδων, \",.\" ή \".,\"")
        ->type_name("XX");
    Add<CalcCommand>();
    Add<CheckCommand>();
    Add<ShowCommand>();
    Add<FlowsCommand>();
    Add<ExplainCommand>();
    Add<PipesCommand>();
    Add<FluidsCommand>();
  }

  int Run(std::vector<std::string> arguments) {
    std::reverse(arguments.begin(), arguments.end());  // as CLI11 wants them
    try {
      app_.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
      console_.out << app_.help();
      return exit_code::kDone;
    } catch (const CLI::ParseError& error) {
      return WrongUse(WhatIsWrong(error, app_));
    }
    if (!ReadSeparators(separators_, console_)) {
      return WrongUse("Τα διαχωριστικά είναι \",.\" ή \".,\" : " + separators_);
    }
    for (const auto& [app, command] : commands_) {
      if (app->parsed()) {
        return command->Run(console_);
      }
    }
    return WrongUse("Λείπει η εντολή");
  }

 private:
  template <typename CommandType>
  void Add() {
    auto command = std::make_unique<CommandType>();
    CLI::App* app = command->AddTo(app_);
    app->formatter(GreekFormatter());
    app->set_help_flag("-h,--help", "Δείχνει αυτή τη βοήθεια");
    commands_.emplace_back(app, std::move(command));
  }

  int WrongUse(const std::string& what) {
    console_.err << what << "\nΒοήθεια : kalvo --help\n";
    return exit_code::kWrongUse;
  }

  Console console_;
  CLI::App app_{kAbout, "kalvo"};
  std::string separators_;
  std::vector<std::pair<CLI::App*, std::unique_ptr<Command>>> commands_;
};

}  // namespace

int RunCommandLine(std::vector<std::string> arguments, Console console) {
  return Program(console).Run(std::move(arguments));
}

}  // namespace kalvo

#include "cli/greek_help.h"

#include <array>

namespace kalvo {

namespace {

class Help : public CLI::Formatter {
 public:
  Help() {
    column_width(26);
    label("Usage", "Χρήση");
    label("OPTIONS", "ΕΠΙΛΟΓΕΣ");
    label("Positionals", "Ορίσματα");
    label("SUBCOMMAND", "ΕΝΤΟΛΗ");
  }

  std::string make_option_opts(const CLI::Option* option) const override {
    const std::string type = option->get_type_size() == 0 ? "" : option->get_type_name();
    const bool many = option->get_expected_max() == CLI::detail::expected_max_vector_size;
    return (type.empty() ? "" : " " + type) + (many ? " ..." : "");
  }
};

struct Fault {
  std::string_view error;
  std::string_view text;
};

constexpr std::array<Fault, 5> kFaults = {{
    {"RequiredError", "Λείπει απαραίτητο όρισμα"},
    {"ExcludesError", "Επιλογές που δεν δίνονται μαζί"},
    {"ConversionError", "Όρισμα που δεν είναι αριθμός"},
    {"ValidationError", "Τιμή που δεν επιτρέπεται"},
    {"ArgumentMismatch", "Λείπει η τιμή της επιλογής"},
}};

// Arguments of the command that the error's own text names.
std::string ArgumentsIn(const std::string& text, const CLI::App& program) {
  std::string names;
  for (const CLI::App* command : program.get_subcommands()) {
    for (const CLI::Option* option : command->get_options()) {
      const std::string name = option->get_name();
      const std::size_t at = text.find(name);
      const std::size_t end = at + name.size();
      if (at != std::string::npos && (end == text.size() || std::isalpha(text[end]) == 0)) {
        names += " " + name;
      }
    }
  }
  return names;
}

}  // namespace

std::shared_ptr<CLI::Formatter> GreekHelp() { return std::make_shared<Help>(); }

std::string WhatIsWrong(const CLI::ParseError& error, const CLI::App& program) {
  std::string rest;
  for (const std::string& word : program.remaining(true)) {
    rest += " " + word;
  }
  if (program.get_subcommands().empty()) {
    return rest.empty() ? "Λείπει η εντολή" : "Άγνωστη εντολή :" + rest;
  }
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
    return "Άγνωστο όρισμα :" + rest;
  }
  for (const Fault& fault : kFaults) {
    if (error.get_name() == fault.error) {
      const std::string names = ArgumentsIn(error.what(), program);
      return std::string(fault.text) + (names.empty() ? "" : " :" + names);
    }
  }
  return "Λανθασμένη χρήση";
}

}  // namespace kalvo

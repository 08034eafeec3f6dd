#include "cli/greek_help.h"

#include <array>
#include <map>

#include "study/codepage.h"

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

  // Columns are counted in characters.
  std::string make_option(const CLI::Option* option, bool is_positional) const override {
    std::string line = "  " + make_option_name(option, is_positional) + make_option_opts(option);
    const std::string indent(column_width_, ' ');
    const std::size_t length = CountCharacters(line);
    line += length < column_width_ ? indent.substr(length) : "\n" + indent;
    return line + CLI::detail::find_and_replace(make_option_desc(option), "\n", "\n" + indent) +
           "\n";
  }
};

struct WrongUse {
  std::string_view error;
  std::string (*text)(const std::vector<const CLI::Option*>& options);
};

std::string Joined(const std::vector<std::string>& words, std::string_view between) {
  std::string text;
  for (const std::string& word : words) {
    text += (text.empty() ? "" : std::string(between)) + word;
  }
  return text;
}

std::string NamesOf(const std::vector<const CLI::Option*>& options) {
  std::vector<std::string> names;
  for (const CLI::Option* option : options) {
    names.push_back(option->get_name());
  }
  return Joined(names, " ");
}

// "1, 2" of an option whose value is one of "1|2"; empty where any will do.
std::string ChoicesOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  return type.find('|') == std::string::npos ? "" : CLI::detail::find_and_replace(type, "|", ", ");
}

std::string MissingValue(const CLI::Option& option) {
  const std::string choices = ChoicesOf(option);
  return option.get_name() + " : λείπει η τιμή, " +
         (choices.empty() ? "δώστε " + option.get_type_name() : "επιτρέπονται " + choices);
}

// What is wrong with a value of that option.
std::string ReasonOf(const CLI::Option& option) {
  if (const std::string choices = ChoicesOf(option); !choices.empty()) {
    return "επιτρέπονται " + choices;
  }
  const std::string type = option.get_type_name();
  const std::size_t dot = type.rfind('.');  // of "ΑΡΧΕΙΟ.XLS"
  return dot == std::string::npos ? "δεν είναι αριθμός που γίνεται δεκτός"
                                  : "το όνομα πρέπει να τελειώνει σε " + type.substr(dot);
}

std::string BadValue(const std::vector<const CLI::Option*>& options) {
  const CLI::Option& option = *options.front();
  const std::string value = Joined(option.results(), ", ");
  return value.empty() ? MissingValue(option)
                       : option.get_name() + " : " + value + ", " + ReasonOf(option);
}

std::string BadCount(const std::vector<const CLI::Option*>& options) {
  const CLI::Option& option = *options.front();
  return option.count() < 2 ? MissingValue(option)
                            : option.get_name() + " : " + Joined(option.results(), ", ") +
                                  ", δίνεται μόνο μία φορά";
}

constexpr std::array<WrongUse, 6> kWrongUses = {{
    {"RequiredError",
     [](const auto& options) { return "Λείπει απαραίτητο όρισμα : " + NamesOf(options); }},
    {"ExcludesError",
     [](const auto& options) { return "Επιλογές που δεν δίνονται μαζί : " + NamesOf(options); }},
    {"RequiresError",
     [](const auto& options) {
       return options.front()->get_name() + " : δίνεται μόνο μαζί με " +
              NamesOf({options.begin() + 1, options.end()});
     }},
    {"ConversionError", BadValue},
    {"ValidationError", BadValue},
    {"ArgumentMismatch", BadCount},
}};

// Options of the program and of the command given that the error's own text names, in its order.
std::vector<const CLI::Option*> OptionsIn(const std::string& text, const CLI::App& program) {
  std::map<std::size_t, const CLI::Option*> found;
  std::vector<const CLI::App*> apps = {&program};
  for (const CLI::App* command : program.get_subcommands()) {
    apps.push_back(command);
  }
  for (const CLI::App* app : apps) {
    for (const CLI::Option* option : app->get_options()) {
      const std::string name = option->get_name();
      const std::size_t at = text.find(name);
      const std::size_t end = at + name.size();
      if (at != std::string::npos && (end == text.size() || text[end] == ' ' || text[end] == ':')) {
        found[at] = option;
      }
    }
  }
  std::vector<const CLI::Option*> options;
  for (const auto& [at, option] : found) {
    options.push_back(option);
  }
  return options;
}

std::string UnknownArguments(const std::vector<std::string>& words) {
  const bool options = words.front().starts_with('-');
  return (options ? "Άγνωστη επιλογή : " : "Όρισμα που περισσεύει : ") + Joined(words, " ");
}

}  // namespace

std::shared_ptr<CLI::Formatter> GreekHelp() { return std::make_shared<Help>(); }

std::string WhatIsWrong(const CLI::ParseError& error, const CLI::App& program) {
  const std::vector<std::string> rest = program.remaining(true);
  if (program.get_subcommands().empty()) {
    if (rest.empty()) {
      return "Λείπει η εντολή";
    }
    return (rest.front().starts_with('-') ? "Άγνωστη επιλογή : " : "Άγνωστη εντολή : ") +
           rest.front();
  }
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr && !rest.empty()) {
    return UnknownArguments(rest);
  }
  const std::vector<const CLI::Option*> options = OptionsIn(error.what(), program);
  for (const WrongUse& wrong : kWrongUses) {
    if (error.get_name() == wrong.error && !options.empty()) {
      return wrong.text(options);
    }
  }
  return "Λανθασμένη χρήση";
}

}  // namespace kalvo

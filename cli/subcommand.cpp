#include "cli/subcommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/greek_help.h"
#include "cli/session.h"

namespace kalvo {

CLI::App* Subcommand::AddTo(CLI::App& program, const std::vector<std::string>& arguments) {
  CLI::App* app = program.add_subcommand(Name(), Help());
  app->group("Εντολές");
  if (std::find(arguments.begin(), arguments.end(), Name()) == arguments.end()) {
    return app;
  }
  app->formatter(GreekHelp());
  app->set_help_flag("-h,--help", "Δείχνει αυτή τη βοήθεια");
  app->option_defaults()->group("Επιλογές");
  app->footer(Foot());
  AddArguments(*app);
  return app;
}

std::string Subcommand::Foot() const {
  return "Γενικές επιλογές, βλ. kalvo --help : --quiet, --separators ΔΧ";
}

void Subcommand::AddLibraryOption(CLI::App& app) {
  app.add_option("--library", library_,
                 "Φάκελος με άλλες Βιβλιοθήκες Σωλήνων (0001.WPT ...) και Ρέοντα Μέσα\n"
                 "(Liquids.dat), όπου τίποτα δεν γράφεται")
      ->type_name("ΦΑΚΕΛΟΣ");
}

std::filesystem::path Subcommand::Library() const {
  return library_.empty() ? DeliveredLibrary() : std::filesystem::path(library_);
}

}  // namespace kalvo

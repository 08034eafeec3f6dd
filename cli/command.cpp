#include "cli/command.h"

#include "cli/session.h"

namespace kalvo {

CLI::App* Command::AddTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand(Name(), Help());
  app->group("Εντολές");
  app->option_defaults()->group("Επιλογές");
  app->footer("");
  AddArguments(*app);
  return app;
}

void Command::AddLibraryOption(CLI::App& app) {
  app.add_option("--library", library_,
                 "Φάκελος με τις Βιβλιοθήκες Σωλήνων (0001.WPT ...) και το Liquids.dat")
      ->type_name("DIR");
}

std::filesystem::path Command::Library() const {
  return library_.empty() ? DeliveredLibrary() : std::filesystem::path(library_);
}

}  // namespace kalvo

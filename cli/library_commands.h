#pragma once

#include "cli/subcommand.h"

namespace kalvo {

/// `kalvo pipes`: the pipe systems, or the sizes of one.
class PipesCommand : public Subcommand {
 public:
  int Run(const Console& console) override;

 protected:
  [[nodiscard]] std::string Name() const override { return "pipes"; }
  [[nodiscard]] std::string Help() const override {
    return "Δείχνει τα Συστήματα Σωλήνων, ή τις διαμέτρους ενός";
  }
  void AddArguments(CLI::App& app) override;

 private:
  int number_ = 0;
  CLI::Option* number_option_ = nullptr;
};

/// `kalvo fluids`: the fluids of the library.
class FluidsCommand : public Subcommand {
 public:
  int Run(const Console& console) override;

 protected:
  [[nodiscard]] std::string Name() const override { return "fluids"; }
  [[nodiscard]] std::string Help() const override { return "Δείχνει τα Ρέοντα Μέσα"; }
  void AddArguments(CLI::App& app) override { AddLibraryOption(app); }
};

}  // namespace kalvo

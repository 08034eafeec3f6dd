#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/console.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace kalvo {

/// One command of `kalvo`: states its arguments once, then runs on the streams it is given.
class Subcommand {
 public:
  virtual ~Subcommand() = default;

  /// Adds the command to `program`: as a name to choose, or with its arguments and help too when
  /// it may be the one that runs.
  CLI::App* AddTo(CLI::App& program, const std::vector<std::string>& arguments);
  /// Runs with the arguments read. Gives the exit code.
  virtual int Run(const Console& console) = 0;

 protected:
  [[nodiscard]] virtual std::string Name() const = 0;
  [[nodiscard]] virtual std::string Help() const = 0;
  /// What follows the arguments in the command's help.
  [[nodiscard]] virtual std::string Foot() const;
  virtual void AddArguments(CLI::App& app) = 0;

  /// A folder of libraries other than the delivered one.
  void AddLibraryOption(CLI::App& app);
  [[nodiscard]] std::filesystem::path Library() const;

 private:
  std::string library_;
};

}  // namespace kalvo

#pragma once

#include <filesystem>
#include <string>

#include "cli/save_study.h"

namespace CLI {
class App;
}  // namespace CLI

namespace kalvo {

/// `--save` and `--overwrite` of the commands that save what they have calculated.
class SaveOptions {
 public:
  void AddTo(CLI::App& app, const std::string& help);

  [[nodiscard]] bool wanted() const { return !save_.empty(); }
  [[nodiscard]] const std::string& place() const { return save_; }

  /// Whether the session's study may be saved after a run that does so to its diameters, the user
  /// being told why not. Asked before the calculation: who may not save is not kept waiting for
  /// results. True where nothing is saved.
  [[nodiscard]] bool MaySave(const Console& console, Session& session, Diameters diameters);

  /// Saves, where wanted: before the results are shown, so that a reader who leaves, or an output
  /// that cannot be written, takes nothing from the save.
  [[nodiscard]] Outcome Save(Session& session) const;

  /// Says that nothing was saved, where that was wanted.
  void TellNotSaved(const Console& console) const;

  /// Says how the save ended, where wanted, after the results. Gives the exit code.
  int Tell(const Console& console, const Outcome& saved) const;

 private:
  std::string save_;
  bool overwrite_ = false;
  std::filesystem::path target_;
};

}  // namespace kalvo

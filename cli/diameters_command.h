#pragma once

#include "cli/save_options.h"
#include "cli/study_commands.h"
#include "engine/diameter_change.h"

namespace kalvo {

/// `kalvo diameters`: other pipes for some sections of a calculated study, and what they come to.
class DiametersCommand : public StudyCommand {
 protected:
  [[nodiscard]] std::string Name() const override { return "diameters"; }
  [[nodiscard]] std::string Help() const override {
    return "Αλλάζει διαμέτρους τμημάτων και συγκρίνει με τα πριν";
  }
  [[nodiscard]] std::string Foot() const override;
  void AddArguments(CLI::App& app) override;
  int RunOn(const Console& console, Session& session) override;

 private:
  // What --set asks for; the exit code.
  int FindChanges(const Console& console, const Session& session,
                  std::vector<DiameterChange>& changes) const;
  void Print(const Console& console, const Session& session,
             const ResultComparison& comparison) const;

  std::vector<std::string> wanted_;  // "N=NAME"
  std::string format_ = "table";
  SaveOptions save_;
};

}  // namespace kalvo

#pragma once

#include "cli/save_options.h"
#include "cli/study_commands.h"
#include "engine/winter.h"

namespace kalvo {

/// `kalvo winter`: the winter duty of a closed study that is calculated for summer.
class WinterCommand : public StudyCommand {
 protected:
  [[nodiscard]] std::string Name() const override { return "winter"; }
  [[nodiscard]] std::string Help() const override {
    return "Υπολογίζει την αντλία του Χειμώνα, με τις διαμέτρους του Θέρους";
  }
  [[nodiscard]] std::string Foot() const override;
  void AddArguments(CLI::App& app) override;
  int RunOn(const Console& console, Session& session) override;

 private:
  // Values of the file given, else of the winter duty that the study was saved with. The exit code.
  int FindValues(const Console& console, Session& session, WinterValues& values) const;
  int Calculate(const Console& console, Session& session, const WinterValues& values) const;

  std::string values_;
  std::string temperature_;  // as typed, with either separator
  bool yes_ = false;
  SaveOptions save_;
};

}  // namespace kalvo

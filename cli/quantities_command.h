#pragma once

#include "cli/study_commands.h"
#include "results/study_report.h"

namespace kalvo {

/// `kalvo quantities`: the bill of pipes and fittings, and the content of water.
class QuantitiesCommand : public StudyCommand {
 protected:
  [[nodiscard]] std::string Name() const override { return "quantities"; }
  [[nodiscard]] std::string Help() const override {
    return "Δείχνει την προμέτρηση σωλήνων και εξαρτημάτων μιας μελέτης";
  }
  [[nodiscard]] std::string Foot() const override;
  void AddArguments(CLI::App& app) override;
  int RunOn(const Console& console, Session& session) override;

 private:
  static constexpr int kNoMethod = 0;

  void Print(const Console& console, const StudyReport& report) const;

  int method_ = kNoMethod;
  bool ignore_capacity_ = false;
  std::string format_ = "table";
};

}  // namespace kalvo

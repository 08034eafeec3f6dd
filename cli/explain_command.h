#pragma once

#include "cli/study_commands.h"

namespace kalvo {

/// `kalvo explain`: how the drop of a section came about.
class ExplainCommand : public StudyCommand {
 protected:
  [[nodiscard]] std::string Name() const override { return "explain"; }
  [[nodiscard]] std::string Help() const override {
    return "Εξηγεί βήμα-βήμα πώς προέκυψε η πτώση πίεσης ενός τμήματος";
  }
  void AddArguments(CLI::App& app) override;
  int RunOn(const Console& console, Session& session) override;

 private:
  static constexpr int kNoMethod = 0;

  int section_ = 0;
  int method_ = kNoMethod;
};

}  // namespace kalvo

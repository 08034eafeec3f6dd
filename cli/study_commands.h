#pragma once

#include "cli/session.h"
#include "cli/subcommand.h"

namespace kalvo {

/// A command on one study.
class StudyCommand : public Subcommand {
 public:
  int Run(const Console& console) override;

 protected:
  void AddArguments(CLI::App& app) override;
  virtual int RunOn(const Console& console, Session& session) = 0;
  [[nodiscard]] const std::string& file() const { return file_; }

 private:
  std::string file_;
};

/// `kalvo check`: the findings of the checks, one per line.
class CheckCommand : public StudyCommand {
 protected:
  [[nodiscard]] std::string Name() const override { return "check"; }
  [[nodiscard]] std::string Help() const override {
    return "Ελέγχει τις ονομασίες και τους κόμβους των τμημάτων";
  }
  int RunOn(const Console& console, Session& session) override;
};

/// `kalvo flows`: the flow report.
class FlowsCommand : public StudyCommand {
 protected:
  [[nodiscard]] std::string Name() const override { return "flows"; }
  [[nodiscard]] std::string Help() const override {
    return "Δείχνει πώς κάθε Σώμα αλλάζει την παροχή των τμημάτων (κλειστό σύστημα)";
  }
  int RunOn(const Console& console, Session& session) override;
};

}  // namespace kalvo

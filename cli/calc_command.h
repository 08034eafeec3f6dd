#pragma once

#include <vector>

#include "cli/save_options.h"
#include "cli/subcommand.h"
#include "results/study_report.h"

namespace kalvo {

/// `kalvo calc`: calculates studies in a workspace of their own, prints the results and saves them
/// where asked.
class CalcCommand : public Subcommand {
 public:
  int Run(const Console& console) override;

 protected:
  [[nodiscard]] std::string Name() const override { return "calc"; }
  [[nodiscard]] std::string Help() const override;
  [[nodiscard]] std::string Foot() const override;
  void AddArguments(CLI::App& app) override;

 private:
  [[nodiscard]] bool IsWrongUse(const Console& console) const;
  int RunInBatch(const Console& console, std::size_t index);
  int RunOne(const Console& console, const std::string& file);
  void TellFindings(const Console& console, const std::string& file) const;
  [[nodiscard]] PressureUnits Units() const;
  void Print(const Console& console, const StudyReport& report);
  void PrintFoot(const Console& console) const;

  std::vector<std::string> studies_;
  int method_ = 1;
  bool fixed_ = false;
  bool ignore_capacity_ = false;
  SaveOptions save_;
  std::string format_ = "table";
  std::string units_ = "mmwg";
  int printed_ = 0;                   ///< studies whose results were told so far
  std::vector<StudyReport> reports_;  ///< those that are told together at the end
};

}  // namespace kalvo

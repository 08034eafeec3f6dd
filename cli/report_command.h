#pragma once

#include "cli/study_commands.h"

namespace kalvo {

/// `kalvo report`: data, results or quantities as a workbook.
class ReportCommand : public StudyCommand {
 protected:
  [[nodiscard]] std::string Name() const override { return "report"; }
  [[nodiscard]] std::string Help() const override {
    return "Γράφει δεδομένα, αποτελέσματα ή προμέτρηση σε αρχείο .XLS";
  }
  [[nodiscard]] std::string Foot() const override;
  void AddArguments(CLI::App& app) override;
  int RunOn(const Console& console, Session& session) override;

 private:
  [[nodiscard]] bool IsOfData() const { return kind_ == "data"; }

  std::string kind_;
  std::string out_;
  std::string designer_;
  std::string templates_;
  bool overwrite_ = false;
};

}  // namespace kalvo

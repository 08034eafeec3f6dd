#pragma once

#include "cli/study_commands.h"
#include "results/printing/print_columns.h"

namespace kalvo {

/// `kalvo export`: results or quantities as a database of their own.
class ExportCommand : public StudyCommand {
 protected:
  [[nodiscard]] std::string Name() const override { return "export"; }
  [[nodiscard]] std::string Help() const override {
    return "Γράφει τα αποτελέσματα ή την προμέτρηση μιας μελέτης σε βάση δεδομένων";
  }
  [[nodiscard]] std::string Foot() const override;
  void AddArguments(CLI::App& app) override;
  int RunOn(const Console& console, Session& session) override;

 private:
  [[nodiscard]] Result<PrintTable> Gather(Session& session) const;

  std::string kind_;
  std::string out_;
  bool ignore_capacity_ = false;
  bool overwrite_ = false;
};

}  // namespace kalvo

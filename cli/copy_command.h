#pragma once

#include "cli/subcommand.h"

namespace kalvo {

/// `kalvo copy`: studies with all their files into another folder.
class CopyCommand : public Subcommand {
 public:
  int Run(const Console& console) override;

 protected:
  [[nodiscard]] std::string Name() const override { return "copy"; }
  [[nodiscard]] std::string Help() const override {
    return "Αντιγράφει μελέτες, με όλα τα αρχεία τους, σε άλλον φάκελο";
  }
  void AddArguments(CLI::App& app) override;

 private:
  std::vector<std::string> studies_;
  std::string folder_;
  bool overwrite_ = false;
};

}  // namespace kalvo

#pragma once

#include "cli/study_commands.h"

namespace kalvo {

/// `kalvo show`: what is in the file.
class ShowCommand : public StudyCommand {
 protected:
  [[nodiscard]] std::string Name() const override { return "show"; }
  [[nodiscard]] std::string Help() const override { return "Δείχνει τα δεδομένα μιας μελέτης"; }
  int RunOn(const Console& console, Session& session) override;
};

}  // namespace kalvo

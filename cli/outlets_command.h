#pragma once

#include "cli/study_commands.h"

namespace kalvo {

/// `kalvo outlets`: the outlets of an open study with their values.
class OutletsCommand : public StudyCommand {
 protected:
  [[nodiscard]] std::string Name() const override { return "outlets"; }
  [[nodiscard]] std::string Help() const override {
    return "Δείχνει τους Υποδοχείς μιας μελέτης ανοικτού συστήματος";
  }
  int RunOn(const Console& console, Session& session) override;
};

}  // namespace kalvo

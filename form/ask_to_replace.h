#pragma once

#include <filesystem>

#include "study/workbench.h"

namespace kalvo {

/// Asks before a file that is there is replaced; not doing so is the default. True: it is not there
/// or may go.
inline bool AskToReplace(Workbench& bench, const std::filesystem::path& file) {
  if (!bench.workspace.outer_disk().Exists(file)) return true;
  return bench.Ask({"  ! !  ΠΡΟΣΟΧΗ  ! ! ",
                    {"... To Αρχείο < " + file.filename().string() + " >, υπάρχει ήδη ...",
                     "... ΘΕΛΕΤΕ ΝΑ ΤΟ ΑΝΤΙΚΑΤΑΣΤΗΣΩ ?? ..."},
                    box_style::kWarnDefaultNo,
                    kAlarmBeeps}) == Answer::kYes;
}

}  // namespace kalvo

#pragma once

#include <filesystem>

#include "study/workbench.h"

namespace kalvo {

/// What an earlier run of the program left in the work files.
enum class LeftOver {
  kNothing,
  kStudy,      ///< rows of the chosen kind, to be offered back
  kOtherKind,  ///< rows of the other kind, to be thrown away
  kSheet       ///< a sheet that was never made into rows, to be offered back
};

struct FoundLeftOver {
  LeftOver what = LeftOver::kNothing;
  int rows = 0;
  SystemKind kind = SystemKind::kNone;  ///< of row 1; the chosen one when it tells both or neither
};

/// Puts the work files in order and tells what they hold. Summer's rows of a winter duty go back
/// first; `DATARES.@@@` wins over the rows; without rows the first of it, `TEMPODAT.TMP` and
/// `FIRSTONE.TMP` that holds some takes their place; rows of no length are deleted. Of a file of
/// odd length the whole records are kept and the original goes into a safety copy below
/// `data_folder`. Error: that copy, or a file, cannot be written; nothing is lost then.
Result<FoundLeftOver> FindLeftOver(Workbench& bench, const std::filesystem::path& data_folder);

/// Brings the study back as an unsaved one, of the kind of its row 1; `recovery` stays set for the
/// main menu. When it cannot be loaded the user is told, everything is copied to safety, and the
/// program starts empty. Error: that copy could not be made; all files stay.
Outcome AcceptRecovery(Workbench& bench, const FoundLeftOver& found,
                       const std::filesystem::path& data_folder);

/// Brings back what is known of a study whose sheet was never made into rows; `recovery` stays set.
/// The sheet stays where it is and is copied to safety. Error: as above, or `Intro.ss2` is broken.
Outcome AcceptSheet(Workbench& bench, const std::filesystem::path& data_folder);

/// Throws away what was left, a safety copy first. Error: it could not be made; all files stay.
Outcome DiscardLeftOver(Workbench& bench, const std::filesystem::path& data_folder);

}  // namespace kalvo

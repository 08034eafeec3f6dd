#pragma once

#include "study/workbench.h"

namespace kalvo {

/// Writes the open study under `study path` as one unit: rows, and statistics, winter rows, fluid
/// and sequence where they are there. Side files of an older save that have no successor stay.
/// Rows are written without results when a calculation is needed or results are not valid.
/// Afterwards nothing is unsaved. After an error the study counts as unsaved. Until the save's
/// journal stands an error leaves every file of the target as before; from then on the save counts
/// as made, and whoever opens or saves that study next does what is left (FinishSave()). A path
/// without a file's name is an error; without rows message 139 is shown too. "Escape" in the path
/// restores it and writes nothing.
Outcome WriteStudy(Workbench& bench);

}  // namespace kalvo

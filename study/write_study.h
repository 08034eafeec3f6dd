#pragma once

#include "study/workbench.h"

namespace kalvo {

/// Writes the open study under `study path` as one unit: rows, and statistics, winter rows, fluid
/// and sequence where they are there. Side files of an older save that have no successor stay.
/// Rows are written without results when a calculation is needed or results are not valid.
/// Afterwards nothing is unsaved. On an error every file of the target is as before; without rows
/// message 139 is shown too. "Escape" in the path restores it and writes nothing.
Outcome WriteStudy(Workbench& bench);

}  // namespace kalvo

#pragma once

#include "study/workbench.h"

namespace kalvo {

/// Sets `pipe material` from row 1 of the study's pipe system.
Outcome SetPipeMaterial(Workbench& bench);

/// The choice of an entry of the list, `position` counted from 0: sets number and material; a
/// changed number marks the study changed, its results invalid, and is written into every row.
Outcome SelectPipeSystem(Workbench& bench, int position);

}  // namespace kalvo

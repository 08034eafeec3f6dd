#pragma once

#include "study/workbench.h"

namespace kalvo {

/// The new-study reset: deletes the work files, sets the study's state to its start values (kind,
/// pipe system and unsaved flag stay) and writes the fluid as water.
void ResetStudy(Workbench& bench);

}  // namespace kalvo

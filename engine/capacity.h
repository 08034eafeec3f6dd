#pragma once

#include "study/workbench.h"

namespace kalvo {

/// Asks (message -300) whether to go on when the largest pipe does not carry the total flow near
/// the design velocity. The flow is the study's total as it stands, in m³/h, in a formula for l/h:
/// it passes a thousand times more easily than row 1's own flow, which counts when the total is 0.
/// False: the user said no. Faults: kFile, 11 and 6 for a library with a bore of 0.
bool CheckPipeCapacity(Workbench& bench);

}  // namespace kalvo

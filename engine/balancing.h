#pragma once

#include "engine/step_down.h"

namespace kalvo {

/// Steps down the pipes of every branch but the critical one and the last of the table, in emitter
/// order, then settles the pressures of the rows off the critical chain and clears the marks.
/// Faults: as StepDownBranch().
void BalanceBranches(const BalanceContext& context);

/// Critical branch, pressures and balancing of the second method, for a closed system. Faults: as
/// above; rows changed so far are written.
void CriticalPassPressure(Workbench& bench);

}  // namespace kalvo

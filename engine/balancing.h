#pragma once

#include "engine/step_down.h"

namespace kalvo {

/// Steps down the pipes of every branch but the critical one and the last of the table, in emitter
/// order, then settles the pressures of the rows off the critical chain. Every row bears in `Auxi`
/// what it bore before, so that the plant section keeps its mark. Faults: as StepDownBranch().
void BalanceBranches(const BalanceContext& context);

/// The same for an open network, by StepDownOpenBranch(); instead of the rows off the critical
/// branch, the pressure of the last row handled is settled anew after each branch. In such a
/// network no two branches have their end in common, so that all sections of a branch are cut off
/// before and no pipe changes: that is how the method is defined.
void BalanceOpenBranches(const BalanceContext& context);

/// Critical branch, pressures and balancing of the second method, for a closed system. Faults: as
/// above; rows changed so far are written.
void CriticalPassPressure(Workbench& bench);

/// The same for an open system.
void OpenPassPressure(Workbench& bench);

}  // namespace kalvo

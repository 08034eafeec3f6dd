#pragma once

#include "engine/step_down.h"

namespace kalvo {

/// Steps down the pipes of every branch but the critical one and the last of the table, in emitter
/// order, then settles the pressures of the rows off the critical chain. Every row bears in `Auxi`
/// what it bore before, so that the plant section keeps its mark. Faults: as StepDownBranch().
void BalanceBranches(const BalanceContext& context, const NotePostponed& note);

/// The same for an open network, by StepDownOpenBranch(); instead of the rows off the critical
/// branch, the pressure of the last row handled is settled anew after each branch. In such a
/// network no two branches have their end in common, so that all sections of a branch are cut off
/// before and no pipe changes: that is how the method is defined.
void BalanceOpenBranches(const BalanceContext& context);

/// Critical branch, pressures and balancing of the second method, for a closed system. Faults: as
/// above; rows changed so far stay changed.
void CriticalPassPressure(Study& study, RowTable& rows, const PassConditions& pass,
                          const NotePostponed& note);

/// The same for an open system.
void OpenPassPressure(Study& study, RowTable& rows, const PassConditions& pass);

/// Both on the rows of the study, read and written; the user is told when the fluid does not fit.
/// Faults: kFile, too.
void CriticalPassPressure(Workbench& bench);
void OpenPassPressure(Workbench& bench);

}  // namespace kalvo

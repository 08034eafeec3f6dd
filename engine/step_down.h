#pragma once

#include <vector>

#include "engine/critical.h"
#include "engine/sizing.h"

namespace kalvo {

/// What the balancing of one branch works on.
struct BalanceContext {
  Study& study;
  RowTable& rows;
  const PassConditions& pass;
  const CriticalBranch& critical;
  /// For every section number the branches that hold it, in order.
  std::vector<std::vector<const Branch*>> branches_through;
  /// Of an open network, for every section number the first row that it feeds, 0 without one.
  std::vector<int> first_fed;
};

/// Context of a balancing of the branches in `critical`, whose cells are numbers of `rows`.
BalanceContext MakeBalanceContext(Study& study, RowTable& rows, const PassConditions& pass,
                                  const CriticalBranch& critical);

/// `Auxi` of a row that was stepped down already.
constexpr std::int16_t kSteppedDown = -1000;

/// Spends the pressure `branch_avail` (mm w.g.) that the sections of `chain` may use: from the last
/// section back each is taken to the next smaller pipe of the library while the friction rate stays
/// within the target, no branch rises above the critical drop and the chain's drop stays within
/// what is available. Quantities move along. Rows that change are changed in memory.
/// Faults: 6 and 11 for nothing available, those of the hydraulics, 63 for a library without the
/// row before.
void StepDownBranch(const BalanceContext& context, Branch chain, float branch_avail);

/// The same in an open network: `fork`, 0 = none, is the section at which the chain leaves the
/// critical branch and the row in hand before the chain's sections; what its outlet needs is taken
/// off `branch_avail`. The drop grows by each section visited and by its height above the first
/// section it feeds. A step stands when the outlet keeps its pressure, too; there are no marks and
/// no other branch is looked at. Gives the row in hand at the end, 0 = none. Faults: as above.
int StepDownOpenBranch(const BalanceContext& context, Branch chain, int fork, float branch_avail);

}  // namespace kalvo

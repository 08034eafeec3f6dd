#pragma once

#include <vector>

#include "engine/branches.h"
#include "engine/row_store.h"

namespace kalvo {

/// The branches of the network and the one with the largest drop.
struct CriticalBranch {
  std::vector<Branch> branches;  ///< in emitter order
  Branch chain;                  ///< the critical one, empty without emitters
  float drop = 0;                ///< its drop, mm w.g.
};

/// Branches, critical branch and its drop (not rounded) from the stored drops; nothing is written.
/// Of equal drops the earlier branch's stands. In an open network a branch's drop holds what its
/// outlets need, too. Faults: 5 and 63 for section numbers that cannot be.
CriticalBranch ReadCriticalBranch(const Study& study, const RowStore& store);

/// Total flow, `CriticalDrop`, `PumpHead` and the `critical branch` of the study, `PAR` and `DP` of
/// every row, from what was found; every `AvaiPres` becomes 0. The rows are changed in `store`
/// only.
void AnnounceCritical(Study& study, RowStore& store, const CriticalBranch& critical);

/// For a closed network ReadCriticalBranch(), its drop rounded to 4 decimals, AnnounceCritical(),
/// then `AvaiPres` of row 1 and of the critical chain.
CriticalBranch FindCriticalBranch(Study& study, RowStore& store);

/// `AvaiPres` of the rows off the chain (from its second cell on), each from the first row without
/// emitter that reaches its start node. A row whose neighbour's pressure is still 0 is postponed
/// twice, by way of `RESTBRA.TMP`; then 0 counts as pressure. A row without such a neighbour takes
/// the one the search found last.
void SettleOtherRows(Workbench& bench, RowStore& store, const Branch& chain);

/// Critical branch and pressures of the first method, on the work file `rows`. Faults: as above,
/// and kFile.
void CriticalPassFlowOnly(Workbench& bench, std::string_view rows = work_file::kRows);

}  // namespace kalvo

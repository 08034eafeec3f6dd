#pragma once

#include <functional>
#include <vector>

#include "engine/branches.h"
#include "engine/row_table.h"
#include "study/workbench.h"

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
CriticalBranch ReadCriticalBranch(const Study& study, const RowTable& rows);

/// Total flow, `CriticalDrop`, `PumpHead` and the `critical branch` of the study, `PAR` and `DP` of
/// every row, from what was found; every `AvaiPres` becomes 0. The rows are changed in memory
/// only.
void StoreCritical(Study& study, RowTable& rows, const CriticalBranch& critical);

/// For a closed network ReadCriticalBranch(), its drop rounded to 4 decimals, StoreCritical(),
/// then `AvaiPres` of row 1 and of the critical chain.
CriticalBranch SettleCriticalBranch(Study& study, RowTable& rows);

/// Notes the rows that wait for a neighbour's pressure.
using NotePostponed = std::function<void(const std::vector<int>& rows)>;

/// `AvaiPres` of the rows off the chain (from its second cell on), each from the first row without
/// emitter that reaches its start node. A row whose neighbour's pressure is still 0 is postponed
/// twice, `note` being called when there are any; then 0 counts as pressure. A row without such a
/// neighbour takes the one the search found last.
void SettleOtherRows(RowTable& rows, const Branch& chain, const NotePostponed& note);

/// Writes postponed rows to `RESTBRA.TMP`, which is there during a pass only.
class PostponedFile {
 public:
  explicit PostponedFile(Workspace& workspace) : workspace_(workspace) {}
  ~PostponedFile();
  PostponedFile(const PostponedFile&) = delete;
  PostponedFile& operator=(const PostponedFile&) = delete;

  /// Faults: kFile.
  [[nodiscard]] NotePostponed Note();

 private:
  Workspace& workspace_;
};

/// Critical branch and pressures of the first method. Faults: as above, and those of `note`.
void CriticalPassFlowOnly(Study& study, RowTable& rows, const NotePostponed& note);
/// The same on the rows of the study, read and written. Faults: kFile, too.
void CriticalPassFlowOnly(Workbench& bench);

}  // namespace kalvo

#pragma once

#include <string>
#include <vector>

#include "engine/row_table.h"
#include "study/workbench.h"

namespace kalvo {

/// Calculated rows, or rows with a change that waits, and all that follows from them: what a later
/// change of diameters can be taken back to.
struct ResultsSnapshot {
  RowTable rows;
  bool waits = false;               ///< a diameter is not the one that the results are for
  std::vector<StatRow> quantities;  ///< those in memory
  std::string statistics;           ///< `STATIST.TMP`, empty when it is missing or unreadable
  float total_flow = 0;             ///< m³/h
  float pump_head = 0;              ///< m w.g.
  float critical_drop = 0;          ///< mm w.g.
  std::string critical_branch;
  bool recalculation_needed = false;
  bool unsaved_changes = false;
};

/// Error: a file cannot be read.
Result<ResultsSnapshot> TakeSnapshot(const Workbench& bench);

/// Diameters, marks, results, quantities, pump and critical branch are again those of the snapshot;
/// the rest of the rows stays as it is. Rows that were calculated become `DATARES.PRV` where there
/// is one; those that waited wait again. The rows are written once, then `STATIST.TMP`, then
/// `DATARES.PRV`. Error: the rows cannot be read or written, or are others: nothing has changed; or
/// a file after them: a new calculation is needed then.
Outcome BringBack(Workbench& bench, const ResultsSnapshot& snapshot);

}  // namespace kalvo

#pragma once

#include "study/workbench.h"

namespace kalvo {

/// Deletes the study's `CurrentRow` and numbers the rows behind it anew. In an open network the
/// first half of each name becomes the row's number; feeder numbers stay as they are. Without rows
/// or with only one: message 121 and nothing is done. The row in hand is then the one that took
/// the place, or the last. Plant section (unless its number is above the rows), count and section
/// table follow; an emitter's data in other files stay. Counts as an unsaved change; results are no
/// longer valid, and emitters must be checked before a calculation.
/// Faults: 5 for a number of more than three digits in an open network; nothing is then changed.
Outcome DeleteSectionRow(Workbench& bench);

/// Puts a copy of the study's `CurrentRow` before it, without plant, flow, emitter and height, and
/// makes it the row in hand. In an open network names follow: own numbers are renewed, and feeder
/// numbers from the inserted place on grow by one; a row behind the place that is fed from before
/// it keeps its name as it is. Rows as they were stay in `DATARES.OLD`. Without rows or with only
/// one: message 122 and nothing is done. Flags as for a deletion.
/// Faults: as DeleteSectionRow(), and 6 for more rows than 16 bits count.
Outcome InsertSectionRow(Workbench& bench);

/// Takes back the insertion before the study's `CurrentRow`: `DATARES.OLD` becomes the rows again
/// and the row that was in hand is in hand again. The flags that the insertion set stay as they
/// are: the caller knows what they were before it. Error: there is no such file.
Outcome UndoInsert(Workbench& bench);

}  // namespace kalvo

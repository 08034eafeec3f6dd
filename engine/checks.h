#pragma once

#include "study/workbench.h"

namespace kalvo {

/// Checks of the section names, on `SectionTable`. Findings go to `ERRORS.TMP`, one line each, and
/// `CalcStatus` says whether there are any. Faults: kFile when the findings cannot be written.

/// Closed system: every section must lead to and come from another. 0 or -1. One row is not
/// checked and leaves the status as it is. Where a name has a Greek "ΑΝΤ" in place of the Latin
/// one a further line says so. Appends when only starts are at fault: delete the file before.
void CheckNodes(Workbench& bench);

/// Open system: own names must differ, feeders must exist. 0 or -1. Appends, and tells of a Greek
/// "ΑΝΤ", as CheckNodes().
void CheckFeedersByName(Workbench& bench);

/// Open system: no feeder's number may be above the count of rows. 0 or -11.
void CheckFeederNumbers(Workbench& bench);

/// Open system: a section that feeds exactly one other has no reason for a name of its own.
/// 0 or -11.
void CheckFeederUse(Workbench& bench);

/// After a sum of flows that lost its way (message 2004): where that was, as the only finding of a
/// list begun anew. The status stays.
void ListLostWalk(Workbench& bench);

/// A line for every section that names the source in Greek letters, which is another node.
std::string GreekSourceFindings(const std::vector<SectionLine>& table);

}  // namespace kalvo

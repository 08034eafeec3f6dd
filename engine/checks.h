#pragma once

#include "study/workbench.h"

namespace kalvo {

/// Checks of the section names, on `SectionTable`. Findings go to `ERRORS.TMP`, one line each.
/// Faults: kFile when they cannot be written.
enum class CheckEnd { kNothing, kFindings };

/// Closed system: every section must lead to and come from another. One row is not
/// checked. Where a name has a Greek "ΑΝΤ" in place of the Latin
/// one a further line says so. Appends when only starts are at fault: delete the file before.
CheckEnd CheckNodes(Workbench& bench);

/// Open system: own names must differ, feeders must exist. Appends, and tells of a Greek
/// "ΑΝΤ", as CheckNodes().
CheckEnd CheckFeedersByName(Workbench& bench);

/// Open system: no feeder's number may be above the count of rows.
CheckEnd CheckFeederNumbers(Workbench& bench);

/// Open system: a section that feeds exactly one other has no reason for a name of its own.
CheckEnd CheckFeederUse(Workbench& bench);

/// After a sum of flows that lost its way (message 2004): where that was, as the only finding of a
/// list begun anew.
void ListLostWalk(Workbench& bench);

/// Tells the user that a sum of flows lost its way (message 2004).
void ShowLostWalk(Workbench& bench);

/// A line for every section that names the source in Greek letters, which is another node.
std::string GreekSourceFindings(const std::vector<SectionLine>& table);

}  // namespace kalvo

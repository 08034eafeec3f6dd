#pragma once

#include "study/workbench.h"

namespace kalvo {

/// Sums the outlets' flows from feeder to feeder, level by level, into `SectionTable` and the rows.
/// Rows without a record in `SOMATA.TMP` have no outlet. False when feeders
/// form a circle: `lost_walk` names a section of it and the rows keep their flows. Faults: kFile.
bool SumOutletFlows(Workbench& bench);

}  // namespace kalvo

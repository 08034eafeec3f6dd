#pragma once

#include "engine/critical.h"

namespace kalvo {

/// Residual pressure that is kept at the end of the critical branch, mm w.g.
constexpr double kResidualPressure = 500.0;

/// For an open network ReadCriticalBranch(), its drop raised by the greatest height along the
/// branch (0 when all are below the pump) and the residual pressure and rounded to 4 decimals,
/// StoreCritical(), then `AvaiPres` of every row in file order, each from its feeder's. A feeder
/// later in the file counts with 0. `PumpHead` is not rounded. Faults: as ReadCriticalBranch().
CriticalBranch SettleOpenCriticalBranch(Study& study, RowTable& rows);

/// `AvaiPres` (2 decimals) of row `number` from its feeder's, or of row 1 from the critical drop,
/// by drop and height; `DP` is stored with it. `feeders`: see LinkFeeders(), 0 counts as row 1.
void SettleFedRow(RowTable& rows, const std::vector<int>& feeders, int number, float drop);

/// Critical branch and pressures of the first method for an open system; `PumpHead` is rounded to
/// 4 decimals. Faults: as above.
void OpenPassFlowOnly(Study& study, RowTable& rows);
/// The same on the rows of the study, read and written. Faults: kFile, too.
void OpenPassFlowOnly(Workbench& bench);

}  // namespace kalvo

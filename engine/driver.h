#pragma once

#include "study/workbench.h"

namespace kalvo {

enum class Method { kFlowOnly = 1, kFlowAndPressure = 2 };

/// First step of every run: the study's values into every row, results cleared. Once the rows are
/// written the results are no longer valid. Faults: kFile; the results then stand.
void ResetCalcFields(Workbench& bench);

/// The passes of a run in their order, each trapped: sizing, critical branch (with balancing in the
/// second method; in a closed system not for a single section, which is closed instead),
/// statistics.
/// `CalcStatus` -13: the fluid does not fit, nothing was calculated; -32: broken off, and
/// `CalcAborted` is set. The design velocity is read again from row 1 at the end.
void RunPasses(Workbench& bench, Method method);

/// The automatic run. A closed system always takes the first method, an open one the method that
/// `MeanVelMode` tells.
void RunCalculation(Workbench& bench);

/// True when the rows are one section named "ANT/ANT".
bool IsLoneSection(const std::vector<SectionRow>& rows);

/// For a lone section: total flow, drop and pump head from the row itself, critical branch "1".
/// Any other network stays as it is. Faults: kFile.
void CloseSingleSection(Workbench& bench);

/// Finds the `critical branch` of results as they stand in the rows, which a study's file does not
/// tell: from the stored drops, after a balancing from rows sized anew in memory, as long as these
/// come to the drop that the rows announce. No row is written and nothing is told. False: there is
/// no such branch, or a fault kept it from being found and the study's stays as it was.
bool RefindCriticalBranch(Workbench& bench);

}  // namespace kalvo

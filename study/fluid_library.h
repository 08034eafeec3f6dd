#pragma once

#include <vector>

#include "study/fluid_row.h"
#include "study/workbench.h"

namespace kalvo {

/// Creates `Liquids.dat` with water and the glycol solution when it is missing.
Outcome CreateFluidLibrary(Workspace& workspace);

/// Rows of `Liquids.dat`; none when it is missing.
Result<std::vector<FluidRow>> ReadFluids(const Workspace& workspace);

/// Water as the library's first row has it, built in when there is no library.
FluidRow WaterRow(const Workspace& workspace);

/// Writes `fluid` at its own row number, at most one past the last. Water (row 1) cannot be
/// changed: nothing is written.
Outcome SaveFluid(Workspace& workspace, const FluidRow& fluid);

/// Deletes row `number` and renumbers those behind it, by way of `Liquids.@@@`. Water (row 1) and
/// the only row stay.
Outcome DeleteFluid(Workspace& workspace, int number);

/// Makes `fluid` the study's own. The density held from an earlier run is forgotten.
Outcome WriteStudyFluid(Workbench& bench, const FluidRow& fluid);

/// Takes the study's fluid from `LIQUID.TMP`, or from the library's first row, which then becomes
/// the study's own. An empty `LIQUID.TMP` stays: the calculation refuses it.
Outcome LoadStudyFluid(Workbench& bench);

}  // namespace kalvo

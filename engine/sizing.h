#pragma once

#include <optional>
#include <vector>

#include "engine/hydraulics.h"
#include "engine/row_table.h"
#include "study/method.h"
#include "study/pipe_row.h"
#include "study/workbench.h"

namespace kalvo {

/// What a pass over the pipes works with.
struct PassConditions {
  FlowConditions flow;
  std::vector<PipeRow> library;
  bool fluid_fits = true;  ///< false: its viscosity is for another temperature, and is not filled
};

/// Library and fluid of the study at `temperature` °C. Nothing is shown and nothing changes; the
/// density is the one that the study holds from an earlier run, else the fluid's. Faults: kFile
/// when library or fluid cannot be read.
PassConditions ReadPassConditions(const Workspace& workspace, const Study& study,
                                  float temperature);

/// The same for a pass: from then on the study holds the density. Nothing when the fluid does not
/// fit the temperature, which TellFluidMisfit() says to the user.
std::optional<PassConditions> HoldPassConditions(const Workspace& workspace, Study& study,
                                                 float temperature);
void TellFluidMisfit(Workbench& bench);

/// Both at the study's temperature.
std::optional<PassConditions> TakePassConditions(Workbench& bench);

/// Area of a pipe size in m².
inline double AreaM2(const PipeRow& pipe) { return static_cast<double>(pipe.area) / 1'000'000.0; }

/// The first pipe of that inner diameter in mm, the last of the library when there is none.
const PipeRow& PipeOfDiameter(const std::vector<PipeRow>& library, float diameter);

/// Picks a pipe for every row from flow and design velocity and fills its results; rebuilds the
/// quantities. `method` is recorded in the rows. A flow beyond the largest pipe raises `MeanVel`
/// for the rows after it. Faults: those of the hydraulics; rows before the failing one are filled.
void SizePipes(Study& study, RowTable& rows, const PassConditions& pass, Method method);

/// The same on the diameters that the rows have; their method and diameter stay as they are.
void RecalculateRows(Study& study, RowTable& rows, const PassConditions& pass);

/// Whether a row has a diameter that SizeMissingPipes() leaves it: one of the library, by name and
/// size.
bool KeepsDiameter(const std::vector<PipeRow>& library, const SectionRow& row);

/// Sizes the rows that have no diameter, or one that the library has not, as SizePipes() does; the
/// others are calculated on theirs. `method` is recorded in all.
void SizeMissingPipes(Study& study, RowTable& rows, const PassConditions& pass, Method method);

/// The first two on the rows of the study, read and written; the user is told when the fluid does
/// not fit. Faults: kFile, too.
void SizePipes(Workbench& bench, Method method);
void RecalculateRows(Workbench& bench);

/// The quantities of rows as they stand, a line per size of the library. Faults: kOverflow.
std::vector<StatRow> CountQuantities(const std::vector<PipeRow>& library,
                                     const std::vector<SectionRow>& rows);

/// The quantities and `STATIST.TMP` anew from rows as they stand; the rows stay. Faults: kFile.
void RecountQuantities(Workbench& bench);

}  // namespace kalvo

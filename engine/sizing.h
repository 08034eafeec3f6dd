#pragma once

#include <optional>
#include <vector>

#include "engine/hydraulics.h"
#include "study/pipe_row.h"
#include "study/workbench.h"

namespace kalvo {

/// What a pass over the pipes works with.
struct PassConditions {
  FlowConditions flow;
  std::vector<PipeRow> library;
};

/// Library and fluid of the study. Nothing when the fluid's stated temperature is not the study's:
/// the user has then been told and `CalcStatus` is -13. The density stays held in the study.
/// Faults: kFile when library or fluid cannot be read.
std::optional<PassConditions> LoadPassConditions(Workbench& bench);
std::optional<PassConditions> LoadPassConditions(Workbench& bench, float temperature);

/// Area of a pipe size in m².
inline double AreaM2(const PipeRow& pipe) { return static_cast<double>(pipe.area) / 1'000'000.0; }

/// Picks a pipe for every row from flow and design velocity and fills its results; rebuilds the
/// quantities. `method` (1 or 2) is what `INILAMDA` records. A flow beyond the largest pipe raises
/// `MeanVel` for the rows behind it. Faults: those of the hydraulics; rows before the failing one
/// are written.
void SizePipes(Workbench& bench, int method);

/// The same on the diameters that the rows have; their method and diameter stay as they are.
void RecalculateRows(Workbench& bench);

/// The same on the rows of another work file, the fluid at `temperature` °C.
void RecalculateRows(Workbench& bench, float temperature, std::string_view rows);

/// The quantities and `STATIST.TMP` anew from rows as they stand; the rows stay. Faults: kFile.
void RecountQuantities(Workbench& bench);

}  // namespace kalvo

#pragma once

#include "study/workbench.h"

namespace kalvo {

/// What the user says of the whole network.
struct GeneralData {
  float MeanTemp = 0;  ///< °C
  float MeanVel = 0;   ///< design velocity, m/s
  std::int16_t plant_section = 0;
};

/// Deletes an `INTRO.TMP` of before, and keeps the study's general data there when it has any: all
/// of flow, temperature and velocity, or a plant section.
Outcome NoteGeneralData(Workbench& bench);

/// Makes `data` the study's. With rows (`has_rows`), when anything differs from what `INTRO.TMP`
/// holds (a missing one counts as different): every row is written anew with the general data and
/// the pipe system, the study counts as changed and its results are no longer valid.
/// Error: the rows cannot be read or written; nothing is then changed.
Outcome StoreGeneralData(Workbench& bench, const GeneralData& data, bool has_rows);

/// Flow of all emitters, m³/h, from the rows.
Result<float> EmittersFlow(const Workspace& workspace);

}  // namespace kalvo

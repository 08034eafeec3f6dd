#pragma once

#include "study/workbench.h"

namespace kalvo {

/// Rebuilds the emitter file and all flows of a closed study from its rows: emitters go from the
/// rows to `SOMATA.TMP` (an old tail of the file is kept and counts), from there back into the
/// rows, every section gets the sum of the flows of the emitters whose circuit runs through it,
/// and the study's general values are written on every row. Ends with the check of the nodes.
/// Marks the study changed when the count of emitters did. Faults: kFile.
void RebuildEmitterData(Workbench& bench);

}  // namespace kalvo

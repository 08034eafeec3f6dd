#pragma once

#include "engine/flow_report.h"

namespace kalvo {

/// Rebuilds the emitter file and all flows of a closed study from its rows: emitters go from the
/// rows to `SOMATA.TMP` (an old tail of the file is kept and counts), from there back into the
/// rows, every section gets the sum of the flows of the emitters whose circuit runs through it,
/// and the study's general values are written on every row. Ends with the check of the nodes.
/// Marks the study changed when the count of emitters did. Where the flows come out as `known`, a
/// sum after which the nodes were found in order, neither is done again. Faults: kFile.
void RebuildEmitterData(Workbench& bench, const SummedFlows* known = nullptr);

}  // namespace kalvo

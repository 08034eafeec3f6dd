#pragma once

#include "study/workbench.h"

namespace kalvo {

/// Sums the flow of every section from the emitters into `SectionTable` and writes the trace of it
/// to `SectionsFlows.txt`. Sets `CalcStatus` to 1 when not exactly one section ends at the source,
/// or an emitter's circuit cannot be followed to it both ways; `lost_walk` then tells where, and
/// the report stands as far as it was written. Faults: kFile when it cannot be written.
void WriteSectionFlows(Workbench& bench);

/// The same sum of the emitters in `WinterEmitterTable`, without a report.
void SumWinterFlows(Study& study);

}  // namespace kalvo

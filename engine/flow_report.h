#pragma once

#include "study/workbench.h"

namespace kalvo {

/// Sums the flow of every section from the emitters into `SectionTable` and writes the trace of it
/// to `SectionsFlows.txt`. False when not exactly one section ends at the source, or an emitter's
/// circuit cannot be followed to it both ways; `lost_walk` then says where, and the report goes as
/// far as the walk did. Faults: kFile when it cannot be written.
bool WriteSectionFlows(Workbench& bench);

/// The same sum without a report.
bool SumSectionFlows(Study& study);

/// The same sum of the emitters in `WinterEmitterTable`, without a report.
bool SumWinterFlows(Study& study);

/// What a sum was made of and what it came to, for a later one of the same.
struct SummedFlows {
  std::vector<SectionLine> before;
  std::vector<EmitterLine> emitters;
  std::vector<SectionLine> after;
};

}  // namespace kalvo

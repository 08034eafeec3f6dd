#pragma once

#include <vector>

#include "study/pipe_row.h"
#include "study/workbench.h"

namespace kalvo {

/// `PipeStats` anew from the library, all totals 0.
void StartPipeStats(Study& study, const std::vector<PipeRow>& library);

/// Adds a section's length, `area_m2` × length and fittings to the line of the pipe's code.
void AddToPipeStats(Study& study, const PipeRow& pipe, const SectionRow& row, double area_m2);

/// Moves a section's quantities from the line of nominal name `old_name` to that of the row's own,
/// when the names differ, `old_name` is not empty and the new pipe is the smaller one.
void MoveInPipeStats(Study& study, std::string_view old_name, const SectionRow& row);

/// Writes `STATIST.TMP`, a record per line. Faults: kFile.
void WriteStatistics(Workbench& bench);

}  // namespace kalvo

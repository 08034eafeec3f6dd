#pragma once

#include <span>

#include "study/study.h"

namespace kalvo {

/// Refills `SectionTable` and `SectionCount` from the rows.
/// Faults: 6 for more rows than 16 bits count; nothing is then changed.
void RefreshSectionTable(Study& study, std::span<const SectionRow> rows);

/// Refills `CalculatedDiameters` from the rows of a run.
void KeepCalculatedDiameters(Study& study, std::span<const SectionRow> rows);

/// Refills `EmitterTable` and `EmitterCount` from `emitters`, one line a row. Faults: as above.
void RefreshEmitterTable(Study& study, std::span<const SectionRow> emitters);

/// The rows that end in an emitter or outlet, in row order.
std::vector<SectionRow> RowsWithEmitter(std::span<const SectionRow> rows);

}  // namespace kalvo

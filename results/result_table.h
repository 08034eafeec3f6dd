#pragma once

#include <span>
#include <vector>

#include "engine/notes.h"
#include "form/grid.h"
#include "study/section_row.h"
#include "study/separators.h"

namespace kalvo {

/// Columns of the table of results, in order.
std::vector<GridColumn> ResultColumns();

/// Fills the row of the table that shows `row`. `first`: the row as it was when the session of
/// results began, nullptr when that is not known.
void FillResultRow(Grid& grid, int at, const SectionRow& row, const SectionRow* first,
                   const std::vector<std::string>& notes, Separators separators);

/// Shows in the row of the table that `row` has another diameter now. `waits`: one that differs
/// from the first of the session and is not calculated yet.
void ShowReplacedDiameter(Grid& grid, int at, const SectionRow& row, bool waits);

}  // namespace kalvo

#pragma once

#include <optional>
#include <string>

#include "entry/winter/winter_sitting.h"
#include "form/editable_grid.h"
#include "study/separators.h"

namespace kalvo {

/// The grid of winter's entry: an emitter a row, its summer at the left, what is entered at the
/// right.

/// The value that a column shows and takes; nothing for one that is only shown.
std::optional<WinterValue> WinterValueOf(int column);
/// The column of a value.
int WinterColumnOf(WinterValue value);

/// Gives the grid its columns and rows.
void SetUpWinterGrid(EditableGrid& grid, const WinterSitting& sitting, Separators separators);
/// Shows the values of an emitter, counted from 0. `refused`: its cell that was refused.
void ShowWinterRow(EditableGrid& grid, const WinterSitting& sitting, int row, Separators separators,
                   std::optional<GridPlace> refused);

/// The text of a cell with all of its figures; empty for a value that is not known.
std::string WinterCellText(const WinterSitting& sitting, GridPlace place, Separators separators);

}  // namespace kalvo

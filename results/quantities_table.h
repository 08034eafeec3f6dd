#pragma once

#include "form/grid.h"
#include "results/quantities.h"

namespace kalvo {

/// Shows the quantities in a table, a row for each size of the pipe system; it has 27 rows at
/// least, and the ones left at its foot hold nothing.
void ShowQuantities(Grid& grid, const Quantities& quantities, Separators separators);

}  // namespace kalvo

#pragma once

#include <string>
#include <vector>

#include "entry/sections/sheet_paste.h"
#include "study/prompter.h"

namespace kalvo {

/// What a copied block puts into winter's grid: values of cells, and the texts that are left out.
struct WinterPaste {
  struct Cell {
    GridPlace place;
    float number = 0;
  };
  std::vector<Cell> cells;
  std::vector<CellText> refused;
};

/// The texts of the block that fall on cells for values, when it is pasted at `target`.
std::vector<std::string> PastedOnWinter(const CellBlock& cells, const GridBlock& target, int rows);

/// Where the block goes in a grid of so many rows. A single cell fills the whole target. What falls
/// on cells that are only shown is dropped, an empty text empties its cell; texts that are no
/// numbers, and those past the grid, are left out. `thousands` as of PastedNumber().
WinterPaste PlanWinterPaste(const CellBlock& cells, const GridBlock& target, int rows,
                            Separators separators, bool thousands);

/// Tells what was left out, with the places.
Box WinterPasteBox(const std::vector<CellText>& refused);

}  // namespace kalvo

#pragma once

#include <string>

#include "platform/xls/workbook.h"
#include "study/separators.h"

namespace kalvo {

/// What a cell shows: its value by the number format of its look, in the user's notation.
std::string CellText(const Workbook& workbook, const Cell& cell, Separators separators);

/// How the cell's text is put across: where its look leaves that open, by the kind of its value,
/// numbers right, texts left, truth values and errors in the middle.
HorizontalAlign CellAlign(const Workbook& workbook, const Cell& cell);

}  // namespace kalvo

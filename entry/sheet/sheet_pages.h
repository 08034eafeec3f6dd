#pragma once

#include <string>

#include "form/grid.h"
#include "form/printed_table.h"
#include "study/separators.h"

namespace kalvo {

/// Rows of the sheet of sections on a full page.
constexpr int kSheetRowsOfPage = 30;

/// The first `rows` rows of the sheet of sections as they are shown, on paper: each after its
/// number, on pages that bear theirs, with how many there are and how long they are together. No
/// rows, no pages. Title, heading and origin stay empty.
PrintedTable SheetPages(const Grid& sheet, int rows, Separators separators);

}  // namespace kalvo

#pragma once

#include "form/printed_table.h"

class QPainter;

namespace kalvo {

/// Paints a page of the table over all that the painter's device prints: in true size on A4 across,
/// larger or smaller on other paper. A text that is too long for its place gets smaller letters.
void PaintPage(QPainter& painter, const PrintedTable& table, const PrintedPage& page);

}  // namespace kalvo

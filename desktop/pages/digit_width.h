#pragma once

#include "platform/xls/cell_format.h"

namespace kalvo {

/// The width of the widest digit in whole dots of 1/96 inch, as columns are counted in
/// (ColumnSpan::width). It comes from a table of fonts, not from the fonts of the machine: a page
/// is the same on every one. Digits of a font that is not in the table are as wide as Arial's.
int DigitDots(const CellFont& font);

/// So many characters as twips: whole dots, by the rule of ECMA-376 Part 1, 18.3.1.13, which is
/// that of .XLS files too.
double ColumnTwips(double characters, int digit_dots);

/// Twips of a dot.
inline constexpr double kTwipsOfDot = 15;

}  // namespace kalvo

#pragma once

#include <string>
#include <string_view>

#include "study/separators.h"

namespace kalvo {

/// `value` as a cell of the number format shows it, such as "#,##0.0", "0.00%", "+0;-0;\"-\"" or
/// "General". Sections for positive, negative and zero are known, texts in quotes or after "\",
/// digits "0", "#" and "?", grouping, thousands as the unit and "%"; "_x" is a blank, "*x" and
/// what is in brackets are left out. Formats of dates, fractions and powers show as "General" does.
/// Source: ECMA-376 Part 1, 18.8.31, numFmts.
std::string NumberByFormat(double value, std::string_view format, Separators separators);

/// A text by the section of the format that is for texts, if there is one.
std::string TextByFormat(std::string_view text, std::string_view format);

}  // namespace kalvo

#pragma once

#include <string>

#include "study/numeric_text.h"

namespace kalvo {

/// Begins a csv file, so that spreadsheets read it as UTF-8.
inline constexpr const char* kUtf8Mark = "\xEF\xBB\xBF";

/// What keeps cells apart: "," when the decimal sign is ".", else ";".
char CellEnd(Separators separators);

/// A text as a cell, in quotes where it needs them.
std::string CsvText(std::string text, char cell_end);

/// The shortest decimal that reads back to the value.
std::string CsvNumber(float value, char decimal);

}  // namespace kalvo

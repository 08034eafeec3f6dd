#pragma once

#include <optional>

#include "study/separators.h"
#include "study/sheet_file.h"

namespace kalvo {

/// Why a row must not be left: a numbered message, and the column that is wrong.
struct RowFault {
  int message;
  int column;
};

/// The first of: a number with several decimal separators; a row behind the first, of another
/// feeder than the source, whose second name is empty, 0 or its first; a length of 0. Rows count
/// from 0.
std::optional<RowFault> FirstFault(const SheetRow& texts, int row, Separators separators);

/// Each by itself, as FirstFault() looks for them.
std::optional<RowFault> SeparatorFault(const SheetRow& texts, Separators separators);
bool IsNameWrong(const SheetRow& texts, int row, Separators separators);
bool IsLengthWrong(const SheetRow& texts, Separators separators);

}  // namespace kalvo

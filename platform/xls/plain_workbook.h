#pragma once

#include <string>

#include "results/printing/print_columns.h"
#include "study/result.h"

namespace kalvo {

/// The bytes of a .XLS workbook of one sheet: the columns' names in the first row, below them the
/// lines. A single is the number that its default text reads back as; texts come without the
/// blanks behind them. Error, without a file: the lines do not fit into a sheet.
Result<std::string> MakePlainWorkbook(const PrintTable& table);

}  // namespace kalvo

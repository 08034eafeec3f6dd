#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "results/printing/print_columns.h"
#include "study/result.h"

namespace kalvo {

/// The one table of a print database.
constexpr std::string_view kPrintTable = "My_Table Data";

/// The bytes of a database with an empty table for such columns; the same ones for the same
/// columns.
std::string MakePrintShell(const std::vector<PrintColumn>& columns);

/// The database `shell` with the lines added to its table. Errors, without a file: it is no
/// database that lines can be added to; the table is missing, has an index, or lacks a column of
/// that name, type and width.
Result<std::string> FillPrintShell(std::string shell, const PrintTable& table);

/// The lines of its table, for the columns given.
Result<PrintTable> ReadPrintShell(std::string bytes, const std::vector<PrintColumn>& columns);

}  // namespace kalvo

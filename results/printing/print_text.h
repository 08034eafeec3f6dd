#pragma once

#include <string>

#include "results/printing/print_database.h"
#include "study/disk.h"
#include "study/separators.h"

namespace kalvo {

/// The kinds of file in which a printed table goes out beside the database.
enum class PrintFileKind {
  kRecord,  ///< lines of fixed widths, ".REC"
  kAscii,   ///< tab-separated lines under the columns' names, ".TXT"
  kTable    ///< a plain workbook, ".XLS"
};

/// A line for each of the table's, its values one behind the other: texts at the left of their
/// width, integers at the right of 6 characters, singles at the right of 16 with as many decimals
/// as that holds. What is missing is blank.
std::string RecordText(const PrintTable& table, Separators separators);

/// The names of the columns and a line for each of the table's, with tabs between the values. The
/// blanks behind a text are left out; tabs and line ends within it become blanks.
std::string AsciiText(const PrintTable& table, Separators separators);

/// A value without the blanks behind it, as a table shows it; numbers with the user's decimal
/// separator.
std::string PrintText(const PrintValue& value, Separators separators);

/// Writes the table as a file of that kind. Error: the file cannot be written.
Outcome WritePrintFile(Disk& disk, PrintDatabase& database, PrintFileKind kind,
                       const PrintTable& table, Separators separators,
                       const std::filesystem::path& file);

}  // namespace kalvo

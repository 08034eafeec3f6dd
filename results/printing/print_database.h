#pragma once

#include <filesystem>

#include "results/printing/print_columns.h"
#include "study/result.h"

namespace kalvo {

/// The shells of the print database, of the sections' rows and of the quantities: empty databases
/// in the program folder. The database made from either.
constexpr const char* kSectionShell = "KALVMSTR.MDB";
constexpr const char* kQuantityShell = "PISTMSTR.MDB";
constexpr const char* kPrintDatabase = "PRNFILE.MDB";

/// Whoever knows the files of databases and workbooks. Each file is the old one or the new one,
/// whole.
class PrintDatabase {
 public:
  virtual ~PrintDatabase() = default;
  /// Writes the database `shell` with the lines added to its table as `file`. Errors: the shell
  /// cannot be read, is no such database, or lacks a column; the file cannot be written.
  virtual Outcome Export(const std::filesystem::path& shell, const PrintTable& table,
                         const std::filesystem::path& file) = 0;
  /// Writes a plain .XLS workbook: the columns' names, below them the lines.
  virtual Outcome ExportWorkbook(const PrintTable& table, const std::filesystem::path& file) = 0;
};

}  // namespace kalvo

#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "form/printers.h"
#include "study/result.h"

namespace kalvo {

/// Rows of a sheet, both included; the first row of a sheet is 1.
struct RowSpan {
  int first = 1;
  int last = 1;
};

/// A workbook that is open. Whoever lets go of it closes it without saving.
class OpenWorkbook {
 public:
  OpenWorkbook() = default;
  OpenWorkbook(const OpenWorkbook&) = delete;
  OpenWorkbook& operator=(const OpenWorkbook&) = delete;
  virtual ~OpenWorkbook() = default;

  /// Where the sheet of that name is, from 0; nothing: there is none.
  [[nodiscard]] virtual std::optional<int> FindSheet(std::string_view name) const = 0;

  /// Puts a value into a cell, which keeps its format. Rows and columns count from 1.
  virtual void PutText(int sheet, int row, int column, std::string_view text) = 0;
  virtual void PutNumber(int sheet, int row, int column, double value) = 0;

  /// Makes what is in a cell bold; the rest of its format stays.
  virtual void Embolden(int sheet, int row, int column) = 0;

  /// Copies rows with all that is in them, formats, heights and merged cells to `target` and on.
  virtual void CopyRows(int from_sheet, RowSpan rows, int to_sheet, int target) = 0;
  /// A new page begins with that row.
  virtual void BreakBefore(int sheet, int row) = 0;
  virtual void SetRowHeight(int sheet, int row, double points) = 0;
  /// Bars every sheet from changes by anyone without the password.
  virtual void Protect(std::string_view password) = 0;

  /// Writes the workbook to a file, which is the old one or the new one, whole.
  virtual Outcome SaveAs(const std::filesystem::path& file) = 0;
  /// Writes its pages as a PDF, likewise.
  virtual Outcome SaveAsPdf(const std::filesystem::path& file) = 0;
  /// Prints its pages, collated. False: the user has cancelled that.
  virtual Result<bool> Print(const PrintOrder& order) = 0;
  /// Shows its pages and returns when the user has closed them.
  virtual Outcome Preview() = 0;
};

/// The program that fills, prints and saves workbooks.
class SpreadsheetApplication {
 public:
  virtual ~SpreadsheetApplication() = default;
  /// Error: the file cannot be read, or is no workbook that can be filled.
  virtual Result<std::unique_ptr<OpenWorkbook>> Open(const std::filesystem::path& file,
                                                     std::string_view password) = 0;
};

}  // namespace kalvo

#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/xls/biff_records.h"
#include "platform/xls/cell_format.h"
#include "platform/xls/shared_strings.h"

namespace kalvo {

/// A workbook as it is read, filled and painted. Rows, columns and sheets count from 0 here.

constexpr int kMostRows = 65536;
constexpr int kMostColumns = 256;
constexpr std::size_t kMostPageBreaks = 1026;

/// A text of Workbook::texts.
struct TextRef {
  std::uint32_t index = 0;
};

/// An error that a formula came to, by its number in the file ([MS-XLS], BErr).
struct CellError {
  std::uint8_t code = 0;
};

/// Nothing, a number, a text, a truth value or an error.
using CellValue = std::variant<std::monostate, double, TextRef, bool, CellError>;

/// A formula as it is in the file; its last result is the cell's value.
struct CellFormula {
  Record record;
  std::vector<Record> after;  ///< the records that belong to it
};

struct Cell {
  std::uint16_t column = 0;
  std::uint16_t format = 0;  ///< of Workbook::formats
  CellValue value;
  std::shared_ptr<const CellFormula> formula;  ///< none in most cells
};

/// A row that has cells or is itself told of.
struct WorkbookRow {
  std::optional<int> height_twips;     ///< none: the sheet's default
  std::uint32_t options = 0x000F0100;  ///< the last four bytes of its record
  std::vector<Cell> cells;             ///< by column
  std::vector<Record> carried;  ///< what is not known among cells; goes behind those of its 32 rows

  [[nodiscard]] bool IsHidden() const { return (options & 0x20U) != 0; }
};

/// Cells of a rectangle, both ends included.
struct CellRange {
  int first_row = 0;
  int last_row = 0;
  int first_column = 0;
  int last_column = 0;

  bool operator==(const CellRange&) const = default;
};

/// A new page begins with that row, for the columns from first to last.
struct PageBreak {
  int row = 0;
  int first_column = 0;
  int last_column = kMostColumns - 1;

  bool operator==(const PageBreak&) const = default;
};

struct ColumnSpan {
  int first = 0;
  int last = 0;
  /// In characters "0" of the workbook's default font, with the space beside the text.
  double width = 0;
  std::uint16_t format = 0;
  bool hidden = false;
};

/// Lengths are inches.
struct PageSetup {
  int paper = 9;  ///< 9: A4; [MS-XLS] 2.4.257 has them all
  bool landscape = false;
  int scale = 100;  ///< percent
  bool fit_to_pages = false;
  int fit_width = 1;  ///< pages, 0: as many as it takes
  int fit_height = 1;
  double left = 0.75;
  double right = 0.75;
  double top = 1;
  double bottom = 1;
  double header_margin = 0.5;
  double footer_margin = 0.5;
  std::string header;  ///< with its codes: "&LΜελέτη&CΣελίδα &P"
  std::string footer;
  bool centre_horizontally = false;
  bool centre_vertically = false;
  bool print_grid = false;
};

/// What bars a sheet from changes.
struct SheetProtection {
  bool cells = false;
  bool objects = false;
  bool scenarios = false;
  std::uint16_t password = 0;  ///< its hash, 0: none
};

struct Sheet {
  std::string name;
  bool is_worksheet = true;  ///< false: a chart, say, which is carried as it is
  bool hidden = false;
  std::map<int, WorkbookRow> rows;
  std::vector<CellRange> merges;
  std::vector<PageBreak> breaks;   ///< by row
  std::vector<int> column_breaks;  ///< a new page begins with that column
  std::vector<ColumnSpan> columns;
  double default_width = 64.0 / 7;  ///< as ColumnSpan::width
  int default_height_twips = 255;
  PageSetup page;
  SheetProtection protection;
  std::optional<CellRange> print_area;

  /// The records before and behind its cells. A record without a body is the place of one that is
  /// made anew: page breaks, protection, merged cells.
  std::vector<Record> head;
  std::vector<Record> tail;

  [[nodiscard]] const Cell* FindCell(int row, int column) const;
  /// 0 when it is hidden.
  [[nodiscard]] double RowHeightPoints(int row) const;
  /// In characters; 0 when it is hidden.
  [[nodiscard]] double ColumnWidth(int column) const;
};

struct Workbook {
  std::vector<Sheet> sheets;
  std::vector<CellFormat> formats;  ///< one at least
  SharedTexts texts;
  CellFont default_font;

  /// The workbook's own records. Those of sheets have no offset yet; the one of the shared strings
  /// has no body.
  std::vector<Record> globals;

  /// A look that is always there.
  [[nodiscard]] const CellFormat& FormatOf(std::uint16_t format) const;
  /// The text of a cell that has one; empty for any other.
  [[nodiscard]] std::string_view TextOf(const Cell& cell) const;
};

/// Whether there is such a cell in a sheet of the format.
bool IsInSheet(int row, int column);

/// Puts a value into a cell, which keeps its format and loses its formula. A new cell takes the
/// format of its row or column. The cell must be in the sheet. A number that is none becomes the
/// error #NUM!.
void PutText(Workbook& workbook, Sheet& sheet, int row, int column, std::string_view text);
void PutNumber(const Workbook& workbook, Sheet& sheet, int row, int column, double value);

/// Copies rows `first` to `last` with cells, formats, heights and the merged cells that are within
/// them to `target` and on, in the same sheet or another. What was there goes; formulas arrive as
/// their results. Rows past the sheet's end are left out.
void CopySheetRows(const Sheet& from, int first, int last, Sheet& to, int target);

/// A new page begins with `row`, once. False: the sheet has as many breaks as the format allows.
bool AddPageBreak(Sheet& sheet, int row);

/// At most 409.5 points, as the format allows; 0 hides the row.
void SetSheetRowHeight(Sheet& sheet, int row, double points);

/// Bars every worksheet from changes: cells, objects and scenarios.
void ProtectSheets(Workbook& workbook, std::string_view password);

}  // namespace kalvo

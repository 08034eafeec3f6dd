#include "entry/sheet/sheet_pages.h"

#include <algorithm>

#include "entry/sections/sheet_columns.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

std::vector<GridColumn> PrintedColumns(const Grid& sheet) {
  std::vector<GridColumn> columns = sheet.columns();
  GridColumn number;
  number.header = "α/α";
  number.width = 4;
  number.closes_family = true;
  columns.insert(columns.begin(), number);
  return columns;
}

std::vector<std::string> PrintedRow(const Grid& sheet, int row) {
  std::vector<std::string> texts{std::to_string(row + 1)};
  for (int column = 0; column < sheet.column_count(); ++column) {
    texts.push_back(sheet.At(row, column).text);
  }
  return texts;
}

// "3 τμήματα · συνολικό μήκος 20,5 m"
std::string LengthSummary(const Grid& sheet, int rows, Separators separators) {
  double length = 0;
  for (int row = 0; row < rows; ++row) {
    length += ParseNumber(sheet.At(row, sheet_column::kLength).text, separators);
  }
  return std::to_string(rows) + (rows == 1 ? " τμήμα" : " τμήματα") + " · συνολικό μήκος " +
         FormatNumber(static_cast<float>(length), separators) + " m";
}

}  // namespace

PrintedTable SheetPages(const Grid& sheet, int rows, Separators separators) {
  PrintedTable table;
  table.summary = LengthSummary(sheet, rows, separators);
  table.columns = PrintedColumns(sheet);
  table.rows_of_page = kSheetRowsOfPage;
  const int pages = (rows + kSheetRowsOfPage - 1) / kSheetRowsOfPage;
  for (int first = 0; first < rows; first += kSheetRowsOfPage) {
    PrintedPage& page = table.pages.emplace_back();
    for (int row = first; row < std::min(first + kSheetRowsOfPage, rows); ++row) {
      page.rows.push_back(PrintedRow(sheet, row));
    }
    page.number = "Σελίδα " + std::to_string(table.pages.size()) + " από " + std::to_string(pages);
  }
  return table;
}

}  // namespace kalvo

#pragma once

#include <string_view>

#include "platform/xls/workbook.h"

namespace kalvo {

/// A workbook of one sheet that a test writes and gives looks. Rows and columns count from 0.
struct PaperWorkbook : Workbook {
  PaperWorkbook() {
    default_font = {.name = "Noto Sans", .height_points = 10.5};
    formats.resize(16);  // a new cell has the last one
    for (CellFormat& format : formats) format.font = default_font;
    sheets.emplace_back().name = "Φύλλο";
  }

  Sheet& sheet() { return sheets.front(); }

  void Put(int row, int column, std::string_view text) {
    PutText(*this, sheet(), row, column, text);
  }
  void Put(int row, int column, double number) { PutNumber(*this, sheet(), row, column, number); }

  /// The look of a cell, to be changed; a cell that is not there is made.
  CellFormat& Look(int row, int column) {
    if (sheet().FindCell(row, column) == nullptr) Put(row, column, "");
    for (Cell& cell : sheet().rows[row].cells) {
      if (cell.column != column) continue;
      cell.format = static_cast<std::uint16_t>(formats.size());
    }
    return formats.emplace_back(formats.front());
  }

  /// So many pages of three lines.
  void PutPages(int pages) {
    for (int row = 0; row < 3 * pages; ++row) {
      Put(row, 0, "Τμήμα " + std::to_string(row + 1));
      Put(row, 1, 12.5 * row);
      if (row % 3 == 0 && row > 0) AddPageBreak(sheet(), row);
    }
    sheet().page.footer = "&RΣελίδα &P / &N";
  }
};

}  // namespace kalvo

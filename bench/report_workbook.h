#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "results/reports/spreadsheet_application.h"

namespace kalvo {

inline void FillPages(OpenWorkbook& book) {
  constexpr int kPages = 15;
  constexpr int kPageRows = 59;
  constexpr int kFirstTableRow = 18;
  constexpr int kTableRows = 40;
  constexpr int kTableColumns = 9;
  for (int page = 1; page < kPages; ++page) {
    book.CopyRows(0, {1, kPageRows}, 0, page * kPageRows + 1);
    book.BreakBefore(0, page * kPageRows + 1);
  }
  for (int line = 0; line < kPages * kTableRows; ++line) {
    const int row = line / kTableRows * kPageRows + kFirstTableRow + line % kTableRows;
    book.PutNumber(0, row, 1, line + 1);
    book.PutText(0, row, 2, std::to_string(line) + "/" + std::to_string(line + 1));
    for (int column = 3; column <= kTableColumns; ++column) {
      book.PutNumber(0, row, column, 12.25 * line / column);
    }
  }
}

/// 600 sections: 15 pages of 59 rows by 9 columns.
inline std::unique_ptr<OpenWorkbook> OpenFilled(SpreadsheetApplication& application) {
  auto book = application.Open(KALVO_SOURCE_DIR "/tests/platform/template.xls", "");
  if (!book) throw std::runtime_error(book.error().Line());
  FillPages(**book);
  return std::move(*book);
}

}  // namespace kalvo

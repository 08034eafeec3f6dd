// Any bytes as a workbook: they are refused with a reason, or the workbook can be filled, shown and
// written, and reads again as it was written. First byte: 1 the bytes are the "Workbook" stream
// alone, since noise would hardly get past the compound file around it.

#include "fuzz/fuzz_bench.h"
#include "platform/xls/cell_text.h"
#include "platform/xls/read_workbook.h"
#include "platform/xls/workbook_file.h"
#include "platform/xls/write_workbook.h"

namespace {

using namespace kalvo;

constexpr Separators kGreek{',', '.'};

void Show(const Workbook& workbook) {
  for (const Sheet& sheet : workbook.sheets) {
    for (const auto& [number, row] : sheet.rows) {
      Require(number >= 0 && number < kMostRows, "a row is in the sheet");
      Require(sheet.RowHeightPoints(number) >= 0, "a row has a height");
      int before = -1;
      for (const Cell& cell : row.cells) {
        Require(cell.column > before && cell.column < kMostColumns, "cells are in order");
        Require(IsUtf8(CellText(workbook, cell, kGreek)), "a cell shows a text");
        CellAlign(workbook, cell);
        before = cell.column;
      }
    }
    for (int column = 0; column < kMostColumns; ++column) {
      Require(sheet.ColumnWidth(column) >= 0, "a column has a width");
    }
  }
}

void Fill(Workbook& workbook) {
  for (Sheet& sheet : workbook.sheets) {
    if (!sheet.is_worksheet) continue;
    PutText(workbook, sheet, 3, 2, "Ω");
    PutNumber(workbook, sheet, 0, 0, 1.5);
    CopySheetRows(workbook.sheets.back(), 0, 58, sheet, 59);
    AddPageBreak(sheet, 59);
    SetSheetRowHeight(sheet, 58, 7);
  }
  ProtectSheets(workbook, "password");
}

void WriteAndRead(const Workbook& workbook) {
  const std::string stream = WriteWorkbookStream(workbook);
  const auto again = ReadWorkbookStream(stream);
  Require(again.ok(), "what is written reads again");
  Require(WriteWorkbookStream(*again) == stream, "and is written the same");
}

void Try(Workbook& workbook) {
  Show(workbook);
  WriteAndRead(workbook);
  Fill(workbook);
  Show(workbook);
  WriteAndRead(workbook);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes = AsText(data, size);
  if ((TakeByte(bytes) & 1U) != 0) {
    auto workbook = ReadWorkbookStream(bytes);
    Require(workbook || IsUtf8(workbook.error().reason), "reason");
    if (workbook) Try(*workbook);
    return 0;
  }
  auto file = ReadWorkbookFile(bytes);
  Require(file || (IsUtf8(file.error().reason) && !file.error().reason.empty()), "reason");
  if (!file) return 0;
  const auto written = WriteWorkbookFile(*file);
  Require(written && ReadWorkbookFile(*written), "the file is written");
  Try(file->workbook);
  return 0;
}

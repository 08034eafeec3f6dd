#include "results/reports/report_paging.h"

#include <algorithm>

namespace kalvo {
namespace {

Result<int> SheetOf(const OpenWorkbook& workbook, const ReportTable& table, const char* name) {
  const auto sheet = workbook.FindSheet(name);
  if (!sheet) {
    return FileError{table.template_file, "Λείπει το φύλλο < " + std::string(name) + " >"};
  }
  return *sheet;
}

// One sheet of the workbook, and the report that goes into it.
class ReportSheet {
 public:
  ReportSheet(OpenWorkbook& workbook, const ReportTable& table, int sheet)
      : workbook_(workbook), table_(table), sheet_(sheet) {}

  // Makes pages 2 to `count` as copies of the page of `page_sheet`.
  void AddPages(int page_sheet, int count) {
    const RowSpan rows{1, table_.page.height};
    for (int page = 1; page < count; ++page) {
      const int first_row = RowOn(page, 1);
      workbook_.CopyRows(page_sheet, rows, sheet_, first_row);
      workbook_.BreakBefore(sheet_, first_row);
      if (table_.gap_height > 0) {
        workbook_.SetRowHeight(sheet_, first_row - 1, table_.gap_height);
      }
    }
  }

  void PutHead(int page, const ReportSource& source) {
    for (const HeadCell& cell : table_.head) {
      Put(RowOn(page, cell.row), cell.column, cell.value(source));
    }
  }

  void PutLine(std::size_t line, const ReportSource& source) {
    const auto lines = static_cast<std::size_t>(table_.page.lines);
    const int row = RowOn(static_cast<int>(line / lines),
                          table_.page.first_line + static_cast<int>(line % lines));
    for (const LineColumn& column : table_.columns) {
      Put(row, column.column, column.value(source, line));
      if (column.is_bold != nullptr && column.is_bold(source, line)) {
        workbook_.Embolden(sheet_, row, column.column);
      }
    }
  }

 private:
  // Pages count from 0, their rows from 1.
  [[nodiscard]] int RowOn(int page, int row) const { return page * table_.page.height + row; }

  void Put(int row, int column, const ReportValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
      workbook_.PutText(sheet_, row, column, *text);
    } else if (const auto* number = std::get_if<double>(&value)) {
      workbook_.PutNumber(sheet_, row, column, *number);
    }
  }

  OpenWorkbook& workbook_;
  const ReportTable& table_;
  int sheet_;
};

}  // namespace

int PageCount(const PageShape& page, std::size_t lines) {
  const auto a_page = static_cast<std::size_t>(page.lines);
  return std::max(1, static_cast<int>((lines + a_page - 1) / a_page));
}

Outcome FillReport(OpenWorkbook& workbook, const ReportTable& table, const ReportSource& source,
                   const ReportProgress& progress) {
  const auto sheet = SheetOf(workbook, table, table.sheet);
  if (!sheet) return sheet.error();
  if (*sheet != 0) {
    return FileError{table.template_file,
                     "Το φύλλο < " + std::string(table.sheet) + " > πρέπει να είναι το πρώτο"};
  }
  const auto page_sheet =
      table.page_sheet == nullptr ? sheet : SheetOf(workbook, table, table.page_sheet);
  if (!page_sheet) return page_sheet.error();

  const std::size_t lines = table.line_count(source);
  const int pages = PageCount(table.page, lines);
  ReportSheet report(workbook, table, *sheet);
  report.AddPages(*page_sheet, pages);
  for (int page = 0; page < pages; ++page) report.PutHead(page, source);
  if (*page_sheet != *sheet) ReportSheet(workbook, table, *page_sheet).PutHead(0, source);
  for (std::size_t line = 0; line < lines; ++line) {
    report.PutLine(line, source);
    if (progress) progress(line + 1, lines);
  }
  return Done{};
}

}  // namespace kalvo

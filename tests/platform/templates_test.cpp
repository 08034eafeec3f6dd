// The delivered templates of reports: what a report puts into them has an empty place there.

#include <gtest/gtest.h>

#include "platform/xls/compound_file.h"
#include "platform/xls/read_workbook.h"
#include "results/reports/quantities_report.h"
#include "results/reports/section_report.h"
#include "study/real_disk.h"

namespace kalvo {
namespace {

Workbook TemplateOf(const ReportTable& report) {
  RealDisk disk;
  const auto file =
      std::filesystem::path(KALVO_SOURCE_DIR) / "data/templates" / report.template_file;
  const auto bytes = disk.Read(file);
  EXPECT_TRUE(bytes.ok()) << file;
  const auto root = ReadCompoundFile(*bytes);
  EXPECT_TRUE(root.ok()) << file;
  auto workbook = ReadWorkbookStream(root->Find("Workbook")->bytes);
  EXPECT_TRUE(workbook.ok()) << file;
  return *std::move(workbook);
}

bool IsEmpty(const Sheet& sheet, int row, int column) {
  const Cell* cell = sheet.FindCell(row - 1, column - 1);
  return cell == nullptr || std::holds_alternative<std::monostate>(cell->value);
}

void ExpectFreePlaces(const ReportTable& report, const Sheet& sheet) {
  for (const HeadCell& cell : report.head) {
    EXPECT_TRUE(IsEmpty(sheet, cell.row, cell.column)) << cell.row << " " << cell.column;
  }
  for (const LineColumn& column : report.columns) {
    for (int line = 0; line < report.page.lines; ++line) {
      EXPECT_TRUE(IsEmpty(sheet, report.page.first_line + line, column.column))
          << "line " << line << ", column " << column.column;
    }
  }
}

// Rows of one page, in points, as they come on paper.
double PageHeight(const ReportTable& report, const Sheet& sheet) {
  double height = 0;
  for (int row = 0; row < report.page.height; ++row) height += sheet.RowHeightPoints(row);
  return height * sheet.page.scale / 100;
}

TEST(Templates, HaveRoomForWhatReportsPut) {
  for (const ReportTable* report :
       {&kResultsReport, &kClosedDataReport, &kOpenDataReport, &kQuantitiesReport}) {
    SCOPED_TRACE(report->template_file);
    const Workbook workbook = TemplateOf(*report);
    for (const Sheet& sheet : workbook.sheets) {
      ExpectFreePlaces(*report, sheet);
      EXPECT_TRUE(sheet.protection.cells && sheet.protection.password != 0);
      EXPECT_EQ(sheet.page.paper, 9) << "A4";
      EXPECT_FALSE(sheet.page.fit_to_pages);
      EXPECT_FALSE(sheet.print_area);
      constexpr double kPointsPerInch = 72;
      const double paper = (sheet.page.landscape ? 210 : 297) / 25.4;
      const double room = (paper - sheet.page.top - sheet.page.bottom) * kPointsPerInch;
      EXPECT_LE(PageHeight(*report, sheet), room + 0.5) << "breaks fall at the ends of pages";
      EXPECT_GE(PageHeight(*report, sheet), room * 0.95);
    }
    EXPECT_EQ(workbook.sheets.size(), report == &kQuantitiesReport ? 2U : 1U);
  }
}

}  // namespace
}  // namespace kalvo

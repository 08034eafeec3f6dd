#include "platform/xls/plain_workbook.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/xls/cell_text.h"
#include "platform/xls/workbook_file.h"
#include "platform/xls/workbook_reasons.h"
#include "tests/platform/printed_rows.h"

namespace kalvo {
namespace {

constexpr Separators kGreek{',', '.'};

TEST(PlainWorkbook, HasNamesAndBelowThemTheLines) {
  const PrintTable table = PrintedTable(999);
  const auto bytes = MakePlainWorkbook(table);
  ASSERT_TRUE(bytes) << bytes.error().Line();
  const auto file = ReadWorkbookFile(*bytes);
  ASSERT_TRUE(file) << file.error().Line();
  ASSERT_EQ(file->workbook.sheets.size(), 1U);
  const Sheet& sheet = file->workbook.sheets.front();
  const auto text = [&](int row, std::string_view column) -> std::string {
    const auto at = std::ranges::find(table.columns, column, &PrintColumn::name);
    const Cell* cell = sheet.FindCell(row, static_cast<int>(at - table.columns.begin()));
    return cell == nullptr ? "(none)" : CellText(file->workbook, *cell, kGreek);
  };
  EXPECT_EQ(text(0, "RecordNumber"), "RecordNumber");
  EXPECT_EQ(text(0, "HeightDiff"), "HeightDiff");
  EXPECT_EQ(text(999, "RecordNumber"), "999");
  EXPECT_EQ(text(1, "Client"), "Ωμέγα & Υιοί");
  EXPECT_EQ(text(1, "Thema"), "  Ξενοδοχείο \"Αύρα\", όροφος 0");
  EXPECT_EQ(text(1, "Material"), "Υλικό Σωλήνων : ΧΑΛΥΒΑΣ");
  EXPECT_EQ(text(1, "NomiDiam"), "(1 1/4)");
  EXPECT_EQ(text(2, "NomiDiam"), "(none)");
  EXPECT_EQ(text(3, "NomiDiam"), "1 1/4");
  EXPECT_EQ(text(1, "InDiameter"), "-35,9");
  EXPECT_EQ(text(1, "AvaiPres"), "-1234,567");
  EXPECT_EQ(sheet.rows.size(), 1000U);
}

TEST(PlainWorkbook, IsNoLongerThanASheet) {
  const PrintTable table{{{"A", PrintType::kInteger, 0}}, std::vector<PrintLine>(65536)};
  const auto bytes = MakePlainWorkbook(table);
  ASSERT_FALSE(bytes);
  EXPECT_EQ(bytes.error().reason, workbook_reason::kDoesNotFit);
}

}  // namespace
}  // namespace kalvo

#include "desktop/pages/page_layout.h"

#include <gtest/gtest.h>

#include "desktop/pages/digit_width.h"
#include "tests/desktop/paper_workbook.h"

namespace kalvo {
namespace {

TEST(ColumnWidths, AreWholeDotsByTheDigitsOfTheFirstFont) {
  EXPECT_EQ(DigitDots({.name = "Arial", .height_points = 10}), 7);
  EXPECT_EQ(DigitDots({.name = "noto sans", .height_points = 10.5}), 8);
  EXPECT_EQ(DigitDots({.name = "Times New Roman", .height_points = 12}), 8);
  EXPECT_EQ(DigitDots({.name = "Nobody's", .height_points = 10}), 7) << "as Arial";
  EXPECT_EQ(DigitDots({.name = "Arial", .height_points = 0}), 1);
  EXPECT_EQ(ColumnTwips(64.0 / 7, 7), 64 * kTwipsOfDot) << "the usual column";
  EXPECT_EQ(ColumnTwips(10, 8), 80 * kTwipsOfDot);
  EXPECT_EQ(ColumnTwips(2.36, 8), 19 * kTwipsOfDot);
  EXPECT_EQ(ColumnTwips(0, 8), 0);
}

// The rows of each page, counted from 0: "0-53 54-99".
std::string RowsOf(const PageLayout& layout) {
  std::string rows;
  for (const SheetPage& page : layout.pages) {
    rows += (rows.empty() ? "" : " ") + std::to_string(page.cells.first_row) + "-" +
            std::to_string(page.cells.last_row);
  }
  return rows;
}

// 100 rows of 12.75 points and one column on A4 with margins of an inch above and below.
struct HundredRows : PaperWorkbook {
  HundredRows() {
    for (int row = 0; row < 100; ++row) Put(row, 0, row);
  }
  [[nodiscard]] std::string Rows() const { return RowsOf(LayOutPages(*this)); }
};

TEST(PageLayout, EndsAPageAtABreakAndWhereTheNextRowHasNoRoom) {
  HundredRows book;
  EXPECT_EQ(book.Rows(), "0-53 54-99");
  AddPageBreak(book.sheet(), 40);
  AddPageBreak(book.sheet(), 300);
  EXPECT_EQ(book.Rows(), "0-39 40-93 94-99");
  book.sheet().page.scale = 50;
  EXPECT_EQ(book.Rows(), "0-39 40-99");
  book.sheet().page.landscape = true;
  book.sheet().page.scale = 100;
  EXPECT_EQ(book.Rows(), "0-34 35-39 40-74 75-99");
  book.sheet().page.landscape = false;
  SetSheetRowHeight(book.sheet(), 10, 0);
  SetSheetRowHeight(book.sheet(), 41, 400);
  SetSheetRowHeight(book.sheet(), 42, 400);
  EXPECT_EQ(book.Rows(), "0-39 40-41 42-65 66-99") << "a page may hold little";
  book.sheet().page.top = 30;
  EXPECT_EQ(book.Rows().substr(0, 8), "0-0 1-1 ") << "a row at least, however little room";
}

TEST(PageLayout, HoldsAPageAsHighAsThePaperToAHair) {
  HundredRows book;
  book.sheet().page.top = 13 / 25.4;
  book.sheet().page.bottom = 15 / 25.4;
  for (int row = 0; row < 59; ++row) SetSheetRowHeight(book.sheet(), row, 12.9);
  SetSheetRowHeight(book.sheet(), 0, 14.65);  // 59 rows of 15257 twips in 15250
  EXPECT_EQ(book.Rows(), "0-58 59-99");
  SetSheetRowHeight(book.sheet(), 0, 15);
  EXPECT_EQ(book.Rows(), "0-57 58-99");
}

TEST(PageLayout, ShowsWhatIsInUseOrThePrintArea) {
  PaperWorkbook book;
  EXPECT_EQ(LayOutPages(book).pages.size(), 1U) << "an empty page to look at";
  book.Put(2, 1, "Α");
  book.Look(4, 0).top.style = LineStyle::kThin;
  book.Look(7, 3).font.bold = true;  // nothing to be seen
  EXPECT_EQ(LayOutPages(book).pages.at(0).cells, (CellRange{0, 4, 0, 1}));
  book.sheet().merges.push_back({2, 5, 1, 2});
  EXPECT_EQ(LayOutPages(book).pages.at(0).cells, (CellRange{0, 5, 0, 2}));
  book.sheet().print_area = CellRange{1, 2, 1, 1};
  const PageLayout layout = LayOutPages(book);
  EXPECT_EQ(layout.pages.at(0).cells, (CellRange{1, 2, 1, 1}));
  book.sheet().print_area = CellRange{5, 2, 1, 0};
  EXPECT_EQ(LayOutPages(book).pages.at(0).cells, (CellRange{0, 5, 0, 2})) << "no area";
}

TEST(PageLayout, GoesDownFirstAndThenToTheRight) {
  HundredRows book;
  for (int column = 1; column < 12; ++column) book.Put(0, column, "Α");
  book.sheet().column_breaks = {3};
  const PageLayout layout = LayOutPages(book);
  ASSERT_EQ(layout.pages.size(), 6U);
  EXPECT_EQ(layout.pages[1].cells, (CellRange{54, 99, 0, 2}));
  EXPECT_EQ(layout.pages[2].cells, (CellRange{0, 53, 3, 10})) << "eight of 73 dots in 6.77 inches";
  EXPECT_EQ(layout.pages[5].cells, (CellRange{54, 99, 11, 11}));
}

TEST(PageLayout, PutsThePageWithinItsMarginsOrInTheMiddle) {
  PaperWorkbook book;
  book.Put(0, 0, "Α");
  book.sheet().columns = {{.first = 0, .last = 0, .width = 10}};
  PageLayout layout = LayOutPages(book);
  EXPECT_EQ(layout.pages.at(0).left, 0.75 * kTwipsOfInch);
  EXPECT_EQ(layout.pages.at(0).top, kTwipsOfInch);
  book.sheet().page.centre_horizontally = book.sheet().page.centre_vertically = true;
  book.sheet().page.scale = 200;
  layout = LayOutPages(book);
  EXPECT_NEAR(layout.pages.at(0).left, (layout.paper.width - 2 * 1200) / 2, 1);
  EXPECT_NEAR(layout.pages.at(0).top, (layout.paper.height - 2 * 255) / 2, 1);
}

TEST(PageLayout, IsOfTheFirstWorksheetThatCanBeSeen) {
  PaperWorkbook book;
  book.Put(0, 0, "κρυφό");
  book.sheets.emplace_back().name = "Διάγραμμα";
  book.sheets.back().is_worksheet = false;
  book.sheets.emplace_back().name = "Ορατό";
  book.sheets.emplace_back().name = "Πρότυπο";
  book.sheets[0].hidden = true;
  EXPECT_EQ(LayOutPages(book).sheet->name, "Ορατό");
  book.sheets[2].hidden = book.sheets[3].hidden = true;
  const PageLayout none = LayOutPages(book);
  EXPECT_EQ(none.sheet, nullptr);
  EXPECT_EQ(none.pages.size(), 1U);
  EXPECT_EQ(none.paper.text, "A4 όρθιο");
}

TEST(Papers, HaveTheirSizeAndName) {
  const Paper a4 = PaperOf(PageSetup());
  EXPECT_NEAR(a4.width, 11906, 1);
  EXPECT_NEAR(a4.height, 16838, 1);
  PageSetup setup;
  setup.paper = 8;
  setup.landscape = true;
  const Paper a3 = PaperOf(setup);
  EXPECT_EQ(a3.text, "A3 πλαγιαστό");
  EXPECT_NEAR(a3.width, 23811, 1);
  setup.paper = 250;
  EXPECT_EQ(PaperOf(setup).text, "A4 πλαγιαστό");
}

}  // namespace
}  // namespace kalvo

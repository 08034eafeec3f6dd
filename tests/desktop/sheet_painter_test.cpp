#include "desktop/pages/sheet_painter.h"

#include <gtest/gtest.h>

#include <QImage>

#include "desktop/pages/shown_pages.h"
#include "desktop/theme.h"
#include "tests/desktop/paper_workbook.h"

namespace kalvo {
namespace {

constexpr QRgb kRed = 0xFFC01020;
constexpr QRgb kBlue = 0xFF1020C0;
constexpr QRgb kWhite = 0xFFFFFFFF;

// A4 with the corner of its cells at 72, 72 and cells of 80 by 20 points; a dot is a point.
struct PaintedWorkbook : PaperWorkbook {
  PaintedWorkbook() {
    sheet().page.left = sheet().page.top = 1;
    sheet().default_width = 107.0 / 8;  // 107 dots: 80.25 points
    sheet().default_height_twips = 400;
  }
  [[nodiscard]] QImage Painted(int page = 0) const {
    ShownPages pages(*this, {',', '.'});
    QImage image(596, 842, QImage::Format_RGB32);
    QPainter painter(&image);
    pages.Paint(painter, QRectF(0, 0, 595.3, 841.9), page);
    return image;
  }
};

// The middle of a cell.
QPoint MiddleOf(int row, int column) {
  return {qRound(72 + 80.25 * (column + 0.5)), 72 + 20 * row + 10};
}

// The dots of the part that are not white, by their edges; nothing when all are.
QRect InkIn(const QImage& image, const QRect& part) {
  QRect ink;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) {
      if (image.pixel(x, y) != kWhite) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

// A cell without its edges.
QRect Inside(int row, int column, int columns = 1) {
  return {qRound(72 + 80.25 * column) + 2, 72 + 20 * row + 2, qRound(80.25 * columns) - 4, 16};
}

TEST(SheetPainter, FillsCellsAndMergedOnesWhole) {
  PaintedWorkbook book;
  CellFormat& solid = book.Look(1, 1);
  solid.fill_pattern = 1;
  solid.fill_colour = kRed & 0xFFFFFFU;
  CellFormat& half = book.Look(3, 0);
  half.fill_pattern = 2;
  half.fill_colour = 0;
  CellFormat& merged = book.Look(5, 0);
  merged.fill_pattern = 1;
  merged.fill_colour = kBlue & 0xFFFFFFU;
  book.sheet().merges.push_back({5, 6, 0, 2});
  const QImage page = book.Painted();
  EXPECT_EQ(page.pixel(MiddleOf(1, 1)), kRed);
  EXPECT_EQ(page.pixel(MiddleOf(1, 0)), kWhite);
  EXPECT_EQ(page.pixel(MiddleOf(2, 1)), kWhite);
  EXPECT_EQ(page.pixel(MiddleOf(3, 0)), 0xFF808080U) << "half black, half white";
  EXPECT_EQ(page.pixel(MiddleOf(6, 2)), kBlue);
  EXPECT_EQ(page.pixel(MiddleOf(6, 3)), kWhite);
}

TEST(SheetPainter, DrawsEachBorderOnItsEdgeAndNoneInsideMergedCells) {
  PaintedWorkbook book;
  book.Look(1, 1).bottom = {LineStyle::kMedium, kRed & 0xFFFFFFU};
  book.Look(1, 2).left = {LineStyle::kHair, kBlue & 0xFFFFFFU};
  for (const int column : {0, 1}) {
    CellFormat& look = book.Look(4, column);
    look.left = look.right = {LineStyle::kThin, kBlue & 0xFFFFFFU};
  }
  book.sheet().merges.push_back({4, 4, 0, 1});
  const QImage page = book.Painted();
  const QPoint cell = MiddleOf(1, 1);
  const auto has = [&page](QRgb colour, const QRect& part) {
    for (int y = part.top(); y <= part.bottom(); ++y) {
      for (int x = part.left(); x <= part.right(); ++x) {
        if (page.pixel(x, y) == colour) return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(has(kRed, {cell.x(), cell.y() + 9, 1, 3}));
  EXPECT_FALSE(has(kRed, {cell.x(), cell.y() - 12, 1, 6})) << "not on the other side";
  EXPECT_TRUE(has(kBlue, {cell.x() + 39, cell.y(), 3, 1})) << "thinner than a dot, still seen";
  const int row = MiddleOf(4, 0).y();
  EXPECT_TRUE(has(kBlue, {71, row, 3, 1}));
  EXPECT_TRUE(has(kBlue, {72 + 160 - 1, row, 3, 1}));
  EXPECT_FALSE(has(kBlue, {72 + 80 - 2, row, 5, 1})) << "inside";
}

TEST(SheetPainter, PutsNumbersRightTextsLeftAndFollowsTheLook) {
  PaintedWorkbook book;
  book.Put(0, 0, "Αα");
  book.Put(1, 0, 12.5);
  book.Put(2, 0, "Αα");
  CellFormat& middle = book.Look(2, 0);
  middle.horizontal = HorizontalAlign::kCentre;
  middle.font.colour = kRed & 0xFFFFFFU;
  book.Put(3, 0, "Αα");
  book.Look(3, 0).indent = 2;
  book.Put(4, 0, "Αα");
  book.Look(4, 0).font.height_points = 5;
  const QImage page = book.Painted();
  const auto ink = [&page](int row) { return InkIn(page, Inside(row, 0)); };
  EXPECT_LT(ink(0).left(), 77);
  EXPECT_LT(ink(0).right(), 95);
  EXPECT_GT(ink(1).left(), 120);
  EXPECT_GT(ink(1).right(), 147);
  EXPECT_NEAR(ink(2).center().x(), MiddleOf(2, 0).x(), 2);
  EXPECT_NEAR(ink(3).left() - ink(0).left(), 15, 1) << "two steps of ten dots";
  EXPECT_LT(ink(4).height(), ink(0).height() * 0.7);
}

TEST(SheetPainter, LetsALongTextRunOnOverEmptyCellsOnly) {
  PaintedWorkbook book;
  const char* text = "Θέρμανση ξενοδοχείου πέντε ορόφων";
  book.Put(0, 0, text);
  book.Put(1, 0, text);
  book.Put(1, 1, "|");
  book.Put(2, 2, text);
  book.Look(2, 2).horizontal = HorizontalAlign::kRight;
  book.Put(3, 0, text);
  book.Look(3, 0).shrink = true;
  book.Put(4, 0, text);
  book.sheet().merges.push_back({4, 4, 1, 2});
  const QImage page = book.Painted();
  EXPECT_FALSE(InkIn(page, Inside(0, 1)).isEmpty());
  EXPECT_LT(InkIn(page, Inside(1, 1)).right(), 72 + 80 + 10) << "only the neighbour's own";
  EXPECT_FALSE(InkIn(page, Inside(2, 1)).isEmpty());
  EXPECT_TRUE(InkIn(page, Inside(3, 1)).isEmpty());
  EXPECT_GT(InkIn(page, Inside(3, 0)).width(), 60) << "shrunk to the cell";
  EXPECT_TRUE(InkIn(page, Inside(4, 1)).isEmpty());
}

TEST(SheetPainter, WrapsATextThatMayAndNeverCutsANumber) {
  PaintedWorkbook book;
  SetSheetRowHeight(book.sheet(), 0, 60);
  book.Put(0, 0, "Θέρμανση ξενοδοχείου πέντε");
  book.Look(0, 0).wrap = true;
  book.Put(1, 0, 123456789012345.0);
  book.Look(1, 0).number_format = "#,##0.00";
  book.Put(1, 1, "");
  const QImage page = book.Painted();
  EXPECT_GT(InkIn(page, {74, 74, 76, 56}).height(), 24) << "lines";
  EXPECT_TRUE(InkIn(page, {74 + 80, 74, 76, 56}).isEmpty());
  const QRect marks = InkIn(page, {74, 132 + 2, 78, 16});
  EXPECT_GT(marks.width(), 60);
  EXPECT_TRUE(InkIn(page, {72 + 82, 132 + 2, 76, 16}).isEmpty());
}

TEST(SheetPainter, TurnsTextsAndPaintsWhatIsAboveAndBelowThePage) {
  PaintedWorkbook book;
  SetSheetRowHeight(book.sheet(), 0, 100);
  book.Put(0, 0, "Διάμετρος");
  book.Look(0, 0).rotation = 90;
  book.Put(0, 1, "ΑΒΓ");
  book.Look(0, 1).rotation = 255;
  book.sheet().page.header = "&L&\"Noto Sans,Bold\"&20Κτίριο";
  book.sheet().page.footer = "&RΣελίδα &P / &N";
  const QImage page = book.Painted();
  for (const QRect& part : {QRect(74, 74, 76, 96), QRect(154, 74, 76, 96)}) {
    const QRect ink = InkIn(page, part);
    EXPECT_GT(ink.height(), 2 * ink.width());
  }
  const QRect header = InkIn(page, {0, 20, 595, 50});
  EXPECT_NEAR(header.left(), 72, 3);
  EXPECT_GT(header.height(), 13) << "20 points";
  const QRect footer = InkIn(page, {0, 780, 595, 61});
  EXPECT_NEAR(footer.right(), 595 - 54, 3);
  EXPECT_GT(footer.top(), 790);
  EXPECT_LE(footer.bottom(), 842 - 36);
}

TEST(SheetPainter, PaintsTheRowsOfEachPageAtItsTop) {
  PaintedWorkbook book;
  book.PutPages(2);
  const QImage first = book.Painted(0);
  const QImage second = book.Painted(1);
  EXPECT_FALSE(InkIn(second, Inside(0, 0)).isEmpty());
  EXPECT_NE(first.copy(Inside(0, 0)), second.copy(Inside(0, 0)));
  EXPECT_TRUE(InkIn(second, {0, 72 + 62, 595, 600}).isEmpty()) << "no row of another page";
}

TEST(SheetPainter, TakesTheWindowsFontForOneThatIsMissing) {
  PaintedWorkbook known;
  PaintedWorkbook unknown;
  for (PaintedWorkbook* book : {&known, &unknown}) {
    book->Put(0, 0, "Μήκος 12,5");
    book->Look(0, 0).font = {
        .name = book == &known ? "Noto Sans" : "Nobody's", .height_points = 12, .bold = true};
  }
  PageFonts fonts;
  const auto family = [&fonts](const char* name) {
    return fonts.Of({.name = name}).font.families().value(0);
  };
  EXPECT_EQ(family("Nobody's"), ThemeFont(10).families().value(0));
  EXPECT_FALSE(InkIn(unknown.Painted(), Inside(0, 0)).isEmpty());
}

}  // namespace
}  // namespace kalvo

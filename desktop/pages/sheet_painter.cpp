#include "desktop/pages/sheet_painter.h"

#include <algorithm>
#include <array>

#include "desktop/pages/border_painter.h"
#include "desktop/pages/cell_text_painter.h"
#include "desktop/pages/page_cells.h"
#include "desktop/pages/page_text_painter.h"

namespace kalvo {
namespace {

// A line on the page's edge is painted whole.
constexpr double kPageEdge = 2 * kTwipsOfPoint;
constexpr BorderLine kGridLine{LineStyle::kHair, 0x808080};

// How much of the fill's colour there is in each pattern; the rest is its background. Stripes are
// painted as the tone that they give.
constexpr std::array kPatternShares = {0.0,  1.0, 0.5, 0.75, 0.25, 0.5, 0.5, 0.5,   0.5,   0.5,
                                       0.75, 0.3, 0.3, 0.3,  0.3,  0.5, 0.5, 0.125, 0.0625};

QColor FillOf(const CellFormat& format) {
  const auto pattern = static_cast<std::size_t>(format.fill_pattern);
  if (pattern == 0) return {};
  const double share = pattern < kPatternShares.size() ? kPatternShares[pattern] : 1;
  const QColor over = ColourOf(format.fill_colour);
  const QColor under = ColourOf(format.fill_background);
  const auto mixed = [share](int a, int b) { return qRound(share * a + (1 - share) * b); };
  return {mixed(over.red(), under.red()), mixed(over.green(), under.green()),
          mixed(over.blue(), under.blue())};
}

/// A page while it is painted; places are those of the sheet.
class OnePage {
 public:
  OnePage(QPainter& painter, const Workbook& workbook, const PageLayout& layout,
          const SheetPage& page, CellTextPainter texts)
      : painter_(painter),
        workbook_(workbook),
        layout_(layout),
        cells_(workbook, layout, page.cells),
        texts_(texts) {}

  void Paint() {
    const CellRange& range = cells_.range();
    QRectF clip = Place(range).adjusted(-kPageEdge, -kPageEdge, kPageEdge, kPageEdge);
    if (EndsTheSheet(range.last_column)) clip.setRight(clip.right() + layout_.paper.width);
    painter_.setClipRect(clip, Qt::IntersectClip);
    painter_.setRenderHint(QPainter::Antialiasing, false);
    PaintFills();
    PaintTexts();
    PaintBorders();
  }

 private:
  [[nodiscard]] QRectF Place(const CellRange& cells) const {
    return {QPointF(layout_.Left(cells.first_column), layout_.Top(cells.first_row)),
            QPointF(layout_.Left(cells.last_column + 1), layout_.Top(cells.last_row + 1))};
  }
  [[nodiscard]] bool EndsTheSheet(int column) const { return column == layout_.column_count() - 1; }

  // Cells side by side in one colour are one fill.
  void PaintFills() {
    const CellRange& range = cells_.range();
    for (int row = range.first_row; row <= range.last_row; ++row) {
      QRectF fill;
      QColor colour;
      for (int column = range.first_column; column <= range.last_column; ++column) {
        const CellFormat* format = cells_.FormatAt(row, column);
        const bool alone = format != nullptr && cells_.MergeAt(row, column) == nullptr;
        const QColor next = alone ? FillOf(*format) : QColor();
        const QRectF place = Place({row, row, column, column});
        if (next == colour) {
          fill.setRight(place.right());
          continue;
        }
        Fill(fill, colour);
        fill = place;
        colour = next;
      }
      Fill(fill, colour);
    }
    for (const CellRange& merged : cells_.merges()) {
      if (const Cell* cell = FirstCell(merged)) {
        Fill(Place(merged), FillOf(workbook_.FormatOf(cell->format)));
      }
    }
  }

  void Fill(const QRectF& place, const QColor& colour) {
    if (colour.isValid() && !place.isEmpty()) painter_.fillRect(place, colour);
  }

  [[nodiscard]] const Cell* FirstCell(const CellRange& merged) const {
    return layout_.sheet->FindCell(merged.first_row, merged.first_column);
  }

  void PaintTexts() {
    const CellRange& range = cells_.range();
    for (int row = range.first_row; row <= range.last_row; ++row) {
      for (int column = range.first_column; column <= range.last_column; ++column) {
        const Cell* cell = cells_.At(row, column);
        if (cell == nullptr || cells_.MergeAt(row, column) != nullptr) continue;
        PaintText(*cell, row, column);
      }
    }
    for (const CellRange& merged : cells_.merges()) {
      const Cell* cell = FirstCell(merged);
      if (cell != nullptr) texts_.Paint(*cell, Place(merged), [](bool, double) { return 0.0; });
    }
  }

  void PaintText(const Cell& cell, int row, int column) {
    int last = column;
    if (workbook_.FormatOf(cell.format).horizontal == HorizontalAlign::kCentreAcross) {
      while (IsCentredAcross(row, last + 1)) ++last;
    }
    texts_.Paint(cell, Place({row, row, column, last}), [&](bool to_the_right, double wanted) {
      return FreeBesideOf(row, to_the_right ? last : column, to_the_right ? 1 : -1, wanted);
    });
  }

  [[nodiscard]] bool IsCentredAcross(int row, int column) const {
    const CellFormat* format = cells_.FormatAt(row, column);
    return format != nullptr && format->horizontal == HorizontalAlign::kCentreAcross &&
           cells_.IsFree(row, column);
  }

  // What is at the right of the last column is free.
  [[nodiscard]] double FreeBesideOf(int row, int column, int step, double wanted) const {
    double free = 0;
    for (int next = column + step; free < wanted; next += step) {
      if (step > 0 && EndsTheSheet(next - 1)) return wanted;
      if (!cells_.IsFree(row, next)) break;
      free += layout_.Left(next + 1) - layout_.Left(next);
    }
    return std::min(free, wanted);
  }

  void PaintBorders() {
    const CellRange& range = cells_.range();
    BorderPainter borders;
    for (int row = range.first_row; row <= range.last_row + 1; ++row) {
      for (int column = range.first_column; column <= range.last_column; ++column) {
        borders.AddHorizontal(
            Edge(row - 1, column, &CellFormat::bottom, row, column, &CellFormat::top),
            layout_.Top(row), layout_.Left(column), layout_.Left(column + 1));
      }
    }
    for (int column = range.first_column; column <= range.last_column + 1; ++column) {
      for (int row = range.first_row; row <= range.last_row; ++row) {
        borders.AddVertical(
            Edge(row, column - 1, &CellFormat::right, row, column, &CellFormat::left),
            layout_.Left(column), layout_.Top(row), layout_.Top(row + 1));
      }
    }
    borders.Draw(painter_);
  }

  // The line between two cells: the second one's, else that of the first. None inside merged cells.
  [[nodiscard]] BorderLine Edge(int row, int column, BorderLine CellFormat::*side, int next_row,
                                int next_column, BorderLine CellFormat::*next_side) const {
    const CellRange* merged = cells_.MergeAt(row, column);
    if (merged != nullptr && merged == cells_.MergeAt(next_row, next_column)) return {};
    BorderLine line;
    if (const CellFormat* second = cells_.FormatAt(next_row, next_column)) {
      line = second->*next_side;
    }
    const CellFormat* first = cells_.FormatAt(row, column);
    if (line.style == LineStyle::kNone && first != nullptr) line = first->*side;
    if (line.style == LineStyle::kNone && layout_.sheet->page.print_grid) return kGridLine;
    return line;
  }

  QPainter& painter_;
  const Workbook& workbook_;
  const PageLayout& layout_;
  PageCells cells_;
  CellTextPainter texts_;
};

}  // namespace

void SheetPainter::Paint(QPainter& painter, int page) {
  if (layout_.sheet == nullptr) return;
  const SheetPage& shown = layout_.pages[static_cast<std::size_t>(page)];
  painter.save();
  painter.translate(shown.left, shown.top);
  painter.scale(layout_.scale, layout_.scale);
  painter.translate(-layout_.Left(shown.cells.first_column), -layout_.Top(shown.cells.first_row));
  OnePage(painter, workbook_, layout_, shown,
          CellTextPainter(painter, workbook_, separators_, fonts_))
      .Paint();
  painter.restore();
  painter.save();
  PaintPageTexts(painter, layout_, page, workbook_.default_font, fonts_);
  painter.restore();
}

}  // namespace kalvo

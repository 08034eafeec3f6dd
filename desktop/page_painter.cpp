#include "desktop/page_painter.h"

#include <QPainter>
#include <algorithm>

#include "desktop/qt_text.h"
#include "desktop/tables/stacked_header.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

// What is printed of A4 across, and the parts of a page, in mm.
constexpr double kPaperWidth = 273;
constexpr double kPaperHeight = 186;
constexpr double kTitleHeight = 7;
constexpr double kHeadingHeight = 6;
constexpr double kHeadGap = 2;
constexpr double kHeadLine = 3;
constexpr double kFootHeight = 7;
constexpr double kHighestRow = 6;
constexpr double kCellSide = 1.2;
constexpr double kStrongLine = 0.35;
constexpr double kThinLine = 0.12;
// Digits of a column's width that are space around its text.
constexpr int kSpaceDigits = 2;

constexpr double kTitlePoints = 13;
constexpr double kTextPoints = 9;
constexpr double kHeadPoints = 7;

// A page while it is painted; lengths are mm.
class PagePainter {
 public:
  PagePainter(QPainter& painter, const PrintedTable& table)
      : painter_(painter), table_(table), unit_(painter.device()->logicalDpiX() / 25.4) {
    const QSizeF room = QSizeF(painter.viewport().size()) / unit_;
    const double fit = std::min(room.width() / kPaperWidth, room.height() / kPaperHeight);
    painter_.scale(fit, fit);
    width_ = room.width() / fit;
    height_ = room.height() / fit;
    PlaceColumns();
  }

  void Paint(const PrintedPage& page) {
    Text({0, 0, width_, kTitleHeight}, Qt::AlignLeft, ToQt(table_.title), kTitlePoints, true);
    const QRectF heading(0, kTitleHeight, width_, kHeadingHeight);
    Text(heading, Qt::AlignLeft, ToQt(table_.heading), kTextPoints);
    Text(heading, Qt::AlignRight, ToQt(table_.summary), kTextPoints);
    const double top = kTitleHeight + kHeadingHeight + kHeadGap;
    const double first = top + PaintHeads(top);
    const double row =
        std::min((height_ - kFootHeight - first) / std::max(table_.rows_of_page, 1), kHighestRow);
    PaintRows(page, first, row);
    PaintLines(top, first + row * static_cast<double>(page.rows.size()));
    Line({0, first}, {width_, first}, kStrongLine);
    const QRectF foot(0, height_ - kFootHeight, width_, kFootHeight);
    Text(foot, Qt::AlignLeft, ToQt(table_.origin), kTextPoints);
    Text(foot, Qt::AlignRight, ToQt(page.number), kTextPoints);
  }

 private:
  // The columns share the whole width by the digits that each wants.
  void PlaceColumns() {
    double whole = 0;
    for (const GridColumn& column : table_.columns) whole += column.width + kSpaceDigits;
    double left = 0;
    for (const GridColumn& column : table_.columns) {
      const double width = (column.width + kSpaceDigits) * width_ / whole;
      columns_.push_back({left, 0, width, 0});
      left += width;
    }
  }

  [[nodiscard]] QRectF Cell(std::size_t column, double top, double height) const {
    return {columns_[column].left(), top, columns_[column].width(), height};
  }

  // Gives the height of the heads.
  double PaintHeads(double top) {
    std::vector<HeadLines> heads;
    qsizetype lines = 0;
    for (const GridColumn& column : table_.columns) {
      const HeadLines& head = heads.emplace_back(StackedLines(ToQt(column.header)));
      lines = std::max(lines, head.words.size() + (head.unit.isEmpty() ? 0 : 1));
    }
    const double height = static_cast<double>(lines) * kHeadLine + 2 * kCellSide;
    painter_.fillRect(Scaled({0, top, width_, height}), kLightTheme.header);
    for (std::size_t column = 0; column < heads.size(); ++column) {
      QRectF line = Cell(column, top + kCellSide, kHeadLine).adjusted(0.3, 0, -0.3, 0);
      for (const QString& word : heads[column].words) {
        Text(line, Qt::AlignHCenter, word, kHeadPoints);
        line.translate(0, kHeadLine);
      }
      line.moveBottom(top + height - kCellSide);
      Text(line, Qt::AlignHCenter, heads[column].unit, kHeadPoints);
    }
    return height;
  }

  void PaintRows(const PrintedPage& page, double top, double height) {
    for (const std::vector<std::string>& texts : page.rows) {
      for (std::size_t column = 0; column < std::min(texts.size(), columns_.size()); ++column) {
        const QRectF inside = Cell(column, top, height).adjusted(kCellSide, 0, -kCellSide, 0);
        const bool number = table_.columns[column].number;
        Text(inside, number ? Qt::AlignRight : Qt::AlignLeft, ToQt(texts[column]), kTextPoints);
      }
      top += height;
      Line({0, top}, {width_, top}, kThinLine);
    }
  }

  void PaintLines(double top, double bottom) {
    Line({0, top}, {width_, top}, kStrongLine);
    Line({0, bottom}, {width_, bottom}, kStrongLine);
    Line({0, top}, {0, bottom}, kStrongLine);
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      const double right = columns_[column].right();
      const bool strong = table_.columns[column].closes_family || column + 1 == columns_.size();
      Line({right, top}, {right, bottom}, strong ? kStrongLine : kThinLine);
    }
  }

  void Line(QPointF from, QPointF to, double thickness) {
    painter_.setPen(QPen(kLightTheme.border, thickness * unit_));
    painter_.drawLine(QLineF(from * unit_, to * unit_));
  }

  void Text(const QRectF& place, Qt::Alignment alignment, const QString& text, double points,
            bool bold = false) {
    if (text.isEmpty()) return;
    QFont font = ThemeFont(points, bold);
    const double width = QFontMetricsF(font, painter_.device()).horizontalAdvance(text);
    const QRectF scaled = Scaled(place);
    if (width > scaled.width()) font.setPointSizeF(points * scaled.width() / width);
    painter_.setFont(font);
    painter_.setPen(kLightTheme.ink);
    painter_.drawText(
        scaled,
        static_cast<int>(alignment | Qt::AlignVCenter | Qt::TextDontClip | Qt::TextSingleLine),
        text);
  }

  [[nodiscard]] QRectF Scaled(const QRectF& place) const {
    return {place.topLeft() * unit_, place.size() * unit_};
  }

  QPainter& painter_;
  const PrintedTable& table_;
  double unit_;  ///< of the device in a mm
  double width_ = 0;
  double height_ = 0;
  std::vector<QRectF> columns_;
};

}  // namespace

void PaintPage(QPainter& painter, const PrintedTable& table, const PrintedPage& page) {
  painter.save();
  PagePainter(painter, table).Paint(page);
  painter.restore();
}

}  // namespace kalvo

#include "desktop/tables/row_header.h"

#include <QPainter>
#include <QTableView>

#include "desktop/icons.h"
#include "desktop/tables/cell_roles.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kBarWidth = 4;
constexpr int kIconSize = 14;
constexpr int kRightGap = 8;
constexpr int kRowHeight = 26;

void DrawIcon(QPainter& painter, const QRect& rect, const char* name, const QColor& color) {
  const QPoint place(rect.left() + kBarWidth + 4, rect.top() + (rect.height() - kIconSize) / 2);
  painter.drawPixmap(place,
                     IconPixmap(name, kIconSize, painter.device()->devicePixelRatioF(), color));
}

}  // namespace

RowHeader::RowHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
  setSectionsClickable(true);
  setHighlightSections(false);
  setSectionResizeMode(QHeaderView::Fixed);
  const QVariant height = parent == nullptr ? QVariant() : parent->property("rowHeight");
  setMinimumSectionSize(0);
  setDefaultSectionSize(height.isValid() ? height.toInt() : kRowHeight);
}

QSize RowHeader::sectionSizeFromContents(int row) const {
  const QFontMetrics metrics(ThemeFont(kHintPoints, true));
  const int number = metrics.horizontalAdvance(QString::number(qMax(row + 1, 10)));
  return {kBarWidth + kIconSize + 12 + number + kRightGap, defaultSectionSize()};
}

// As wide as the last number wants; asking every row at each change would take longer than
// painting does.
QSize RowHeader::sizeHint() const { return sectionSizeFromContents(count() - 1); }

void RowHeader::paintSection(QPainter* painter, const QRect& rect, int row) const {
  const Theme& theme = ActiveTheme();
  const auto* table = qobject_cast<const QTableView*>(parentWidget());
  const bool current = table != nullptr && table->currentIndex().row() == row;
  painter->save();
  painter->fillRect(rect, current ? theme.soft : theme.header);
  const int look = model()->headerData(row, Qt::Vertical, kLookRole).toInt();
  if ((look & kCriticalLook) != 0) {
    painter->fillRect(QRect(rect.topLeft(), QSize(kBarWidth, rect.height())), theme.crit);
    DrawIcon(*painter, rect, "critical", theme.crit);
  } else if ((look & kAlarmLook) != 0) {
    DrawIcon(*painter, rect, "exclamation", theme.warn);
  }
  painter->setFont(ThemeFont(kHintPoints, current));
  painter->setPen(current ? theme.ink : theme.ink2);
  painter->drawText(rect.adjusted(0, 0, -kRightGap, 0), Qt::AlignRight | Qt::AlignVCenter,
                    model()->headerData(row, Qt::Vertical).toString());
  painter->setPen(theme.line);
  painter->drawLine(rect.bottomLeft(), rect.bottomRight());
  painter->drawLine(rect.topRight(), rect.bottomRight());
  painter->restore();
}

}  // namespace kalvo

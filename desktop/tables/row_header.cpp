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

bool HasAlarm(const QAbstractItemModel& model, int row) {
  for (int column = 0; column < model.columnCount(); ++column) {
    if (model.index(row, column).data(kAlarmRole).toBool()) return true;
  }
  return false;
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
  return {kBarWidth + kIconSize + 12 + number + kRightGap,
          QHeaderView::sectionSizeFromContents(row).height()};
}

void RowHeader::paintSection(QPainter* painter, const QRect& rect, int row) const {
  const Theme& theme = ActiveTheme();
  const auto* table = qobject_cast<const QTableView*>(parentWidget());
  const bool current = table != nullptr && table->currentIndex().row() == row;
  painter->save();
  painter->fillRect(rect, current ? theme.soft : theme.header);
  if (model()->index(row, 0).data(kCriticalRole).toBool()) {
    painter->fillRect(QRect(rect.topLeft(), QSize(kBarWidth, rect.height())), theme.crit);
    DrawIcon(*painter, rect, "critical", theme.crit);
  } else if (HasAlarm(*model(), row)) {
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

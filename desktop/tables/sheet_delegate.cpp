#include "desktop/tables/sheet_delegate.h"

#include <QAbstractItemView>
#include <QPainter>

#include "desktop/icons.h"
#include "desktop/tables/cell_roles.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kSidePadding = 9;
constexpr double kChipInset = 5;
constexpr double kChipRadius = 4;
constexpr int kPencil = 14;

bool IsSelected(const QStyleOptionViewItem& option) {
  return option.state.testFlag(QStyle::State_Selected);
}

// The current cell keeps a thin frame while the keyboard is elsewhere in the window.
bool IsCurrent(const QStyleOptionViewItem& option, const QModelIndex& index) {
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
  return view != nullptr && view->currentIndex() == index;
}

// The row of the current cell, in tables that show it.
bool IsCurrentRow(const QStyleOptionViewItem& option, const QModelIndex& index) {
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
  return view != nullptr && view->currentIndex().row() == index.row() &&
         view->property("tintsCurrentRow").toBool();
}

QColor GroundOf(const QStyleOptionViewItem& option, const QModelIndex& index) {
  const Theme& theme = ActiveTheme();
  if (IsSelected(option) || IsCurrentRow(option, index)) return theme.soft;
  if (index.data(kCriticalRole).toBool()) return theme.critbg;
  const bool odd = option.features.testFlag(QStyleOptionViewItem::Alternate);
  return odd ? theme.zebra : theme.surface;
}

}  // namespace

void SheetDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  const Theme& theme = ActiveTheme();
  QStyleOptionViewItem filled = option;
  initStyleOption(&filled, index);
  painter->save();
  painter->fillRect(option.rect, GroundOf(filled, index));
  painter->setRenderHint(QPainter::Antialiasing);
  DrawContent(*painter, filled, index);
  painter->restore();

  painter->save();
  if (family_ends_.contains(index.column())) {
    // Beside the grid line, which the view draws over whatever lies there.
    const int x = option.rect.right();
    painter->setPen(theme.border);
    painter->drawLine(x, option.rect.top(), x, option.rect.bottom() + 1);
  }
  if (IsCurrent(option, index)) {
    const bool has_keys = option.widget->hasFocus();
    painter->setPen(has_keys ? QPen(theme.primary, 2) : QPen(theme.border, 1));
    painter->drawRect(QRectF(option.rect).adjusted(1, 1, -1, -1));
  }
  painter->restore();
}

void SheetDelegate::DrawContent(QPainter& painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
  const Theme& theme = ActiveTheme();
  const QRect inside = option.rect.adjusted(kSidePadding, 0, -kSidePadding, 0);
  const bool strong = index.data(kStrongRole).toBool();
  const bool critical_name = index.column() == 0 && index.data(kCriticalRole).toBool();
  QFont font = option.font;
  font.setBold(font.bold() || strong || critical_name);
  painter.setFont(font);

  QString value = option.text;
  auto alignment = option.displayAlignment;
  if (const qsizetype colon = value.indexOf(" : "); colon >= 0) {
    painter.setPen(theme.ink3);
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter, value.left(colon).trimmed());
    value = value.mid(colon + 3).trimmed();
    alignment = Qt::AlignRight | Qt::AlignVCenter;
  }
  painter.setPen(theme.ink);
  if (strong) painter.setPen(theme.primary);
  if (index.data(kAlarmRole).toBool()) painter.setPen(theme.err);
  if (index.data(kLockedRole).toBool()) painter.setPen(theme.ink3);
  const QString elided = option.fontMetrics.elidedText(value, Qt::ElideRight, inside.width() + 4);
  painter.drawText(inside, static_cast<int>(alignment), elided);
}

void DiameterDelegate::DrawContent(QPainter& painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
  const Theme& theme = ActiveTheme();
  const QVariant background = index.data(Qt::BackgroundRole);
  if (!background.isValid()) {
    SheetDelegate::DrawContent(painter, option, index);
    return;
  }
  const bool imposed = index.data(kImposedRole).toBool();
  const QColor text = imposed ? theme.onimposed : theme.oncalculated;
  const QRectF chip = QRectF(option.rect).adjusted(kChipInset, 3.5, -kChipInset, -3.5);
  painter.setPen(imposed ? QPen(text, 1) : QPen(Qt::NoPen));
  painter.setBrush(qvariant_cast<QBrush>(background));
  painter.drawRoundedRect(chip, kChipRadius, kChipRadius);
  QFont font = option.font;
  font.setBold(imposed);
  painter.setFont(font);
  painter.setPen(text);
  painter.drawText(chip.adjusted(6, 0, -8, 0), Qt::AlignRight | Qt::AlignVCenter, option.text);
  if (!imposed) return;
  painter.drawPixmap(QPointF(chip.left() + 6, chip.center().y() - kPencil / 2.0),
                     IconPixmap("edit", kPencil, painter.device()->devicePixelRatioF(), text));
}

}  // namespace kalvo

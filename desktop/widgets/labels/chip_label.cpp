#include "desktop/widgets/labels/chip_label.h"

#include <QPainter>

#include "desktop/icons.h"

namespace kalvo {
namespace {

constexpr int kChipIcon = 14;
constexpr int kChipGap = 6;

}  // namespace

QSize ChipLabel::sizeHint() const { return QLabel::sizeHint() + QSize(kChipIcon + kChipGap, 0); }

void ChipLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawFrame(&painter);
  const QRect area = contentsRect();
  const QColor ink = palette().color(foregroundRole());
  painter.drawPixmap(area.left(), area.center().y() - kChipIcon / 2,
                     IconPixmap(icon_name_, kChipIcon, devicePixelRatioF(), ink));
  painter.setPen(ink);
  painter.drawText(area.adjusted(kChipIcon + kChipGap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                   text());
  DrawAside(painter, area);
}

void ChipLabel::DrawAside(QPainter& painter, const QRect& area) const {
  QFont light = font();
  light.setWeight(QFont::Normal);
  const int room = area.width() - sizeHint().width();
  if (aside_.isEmpty() || QFontMetrics(light).horizontalAdvance(aside_) > room) return;
  painter.setFont(light);
  painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter, aside_);
}

}  // namespace kalvo

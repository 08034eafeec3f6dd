#include "desktop/widgets/labels/chip_label.h"

#include <QPainter>

#include "desktop/icons.h"
#include "desktop/widgets/labels/long_words.h"

namespace kalvo {
namespace {

constexpr int kChipIcon = 14;
constexpr int kChipGap = 6;
constexpr int kNarrowest = 64;

}  // namespace

QSize ChipLabel::sizeHint() const { return QLabel::sizeHint() + QSize(kChipIcon + kChipGap, 0); }

QSize ChipLabel::minimumSizeHint() const {
  return wordWrap() ? QSize(kNarrowest, fontMetrics().height()) : sizeHint();
}

int ChipLabel::heightForWidth(int width) const {
  if (!wordWrap()) return QLabel::heightForWidth(width);
  const int around = this->width() - contentsRect().width() + kChipIcon + kChipGap;
  const QRect room(0, 0, qMax(width - around, 1), QWIDGETSIZE_MAX);
  const int lines = fontMetrics().boundingRect(room, Flags(), WithBreaks(text())).height();
  return lines + height() - contentsRect().height();
}

int ChipLabel::Flags() const {
  return Qt::AlignLeft | Qt::AlignVCenter | (wordWrap() ? Qt::TextWordWrap : 0);
}

void ChipLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawFrame(&painter);
  const QRect area = contentsRect();
  const QColor ink = palette().color(foregroundRole());
  painter.drawPixmap(area.left(), area.center().y() - kChipIcon / 2,
                     IconPixmap(icon_name_, kChipIcon, devicePixelRatioF(), ink));
  painter.setPen(ink);
  painter.drawText(area.adjusted(kChipIcon + kChipGap, 0, 0, 0), Flags(), WithBreaks(text()));
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

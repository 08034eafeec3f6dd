#include "desktop/widgets/labels/elided_label.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace kalvo {
namespace {

constexpr int kShortest = 64;

QString Elided(const QLabel& label) {
  return label.fontMetrics().elidedText(label.text().trimmed(), Qt::ElideMiddle,
                                        label.contentsRect().width());
}

}  // namespace

QSize ElidedLabel::minimumSizeHint() const {
  const QSize whole = QLabel::minimumSizeHint();
  return {std::min(whole.width(), kShortest), whole.height()};
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && Elided(*this) != text().trimmed()) {
    QToolTip::showText(static_cast<const QHelpEvent*>(event)->globalPos(), text().trimmed(), this);
    return true;
  }
  return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawFrame(&painter);
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                        isEnabled(), Elided(*this), foregroundRole());
}

}  // namespace kalvo

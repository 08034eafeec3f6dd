#include "desktop/widgets/labels/check_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "desktop/icons.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kCheckIcon = 14;
constexpr int kCheckGap = 4;
constexpr int kShortestCheck = 120;  // shorter texts stay whole

QFontMetrics CheckMetrics() { return QFontMetrics(ThemeFont(kHintPoints)); }

}  // namespace

QSize CheckLabel::sizeHint() const {
  const QFontMetrics metrics = CheckMetrics();
  if (text().isEmpty()) return {0, metrics.height() + 2};
  return {kCheckIcon + kCheckGap + metrics.horizontalAdvance(text()) + 1, metrics.height() + 2};
}

QSize CheckLabel::minimumSizeHint() const {
  return {qMin(sizeHint().width(), kShortestCheck), sizeHint().height()};
}

QString CheckLabel::Elided() const {
  return CheckMetrics().elidedText(text(), Qt::ElideRight, width() - kCheckIcon - kCheckGap);
}

bool CheckLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && Elided() != text()) {
    QToolTip::showText(static_cast<const QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
  }
  return QLabel::event(event);
}

void CheckLabel::paintEvent(QPaintEvent*) {
  if (text().isEmpty()) return;
  const Theme& theme = ActiveTheme();
  const bool wrong = property("tone") == "alarm";
  QPainter painter(this);
  painter.drawPixmap(0, (height() - kCheckIcon) / 2,
                     IconPixmap(wrong ? "stop" : "check", kCheckIcon, devicePixelRatioF(),
                                wrong ? theme.err : theme.ok));
  painter.setFont(ThemeFont(kHintPoints));
  painter.setPen(wrong ? theme.err : theme.ink3);
  painter.drawText(rect().adjusted(kCheckIcon + kCheckGap, 0, 0, 0),
                   Qt::AlignLeft | Qt::AlignVCenter, Elided());
}

}  // namespace kalvo

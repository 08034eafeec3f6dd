#include "desktop/widgets/boxes/thin_bar.h"

#include <QPainter>
#include <QTimerEvent>

#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kThinHeight = 6;
constexpr int kTickMs = 40;
constexpr double kTickStep = 0.03;
constexpr double kRunnerShare = 0.3;

}  // namespace

ThinBar::ThinBar(QWidget* parent) : QProgressBar(parent) {
  setTextVisible(false);
  setFixedHeight(kThinHeight);
}

QSize ThinBar::sizeHint() const { return {220, kThinHeight}; }

QSize ThinBar::minimumSizeHint() const { return {60, kThinHeight}; }

void ThinBar::showEvent(QShowEvent* event) {
  timer_.start(kTickMs, this);
  QProgressBar::showEvent(event);
}

void ThinBar::hideEvent(QHideEvent* event) {
  timer_.stop();
  QProgressBar::hideEvent(event);
}

void ThinBar::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_.timerId()) {
    QProgressBar::timerEvent(event);
    return;
  }
  if (minimum() != maximum()) return;
  runner_ += kTickStep;
  if (runner_ > 1) runner_ = 0;
  update();
}

void ThinBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const QRectF bar = rect();
  const double radius = bar.height() / 2;
  painter.setBrush(ActiveTheme().header);
  painter.drawRoundedRect(bar, radius, radius);

  QRectF filled = bar;
  if (minimum() == maximum()) {
    filled.setLeft(bar.left() + runner_ * (1 + kRunnerShare) * bar.width() -
                   kRunnerShare * bar.width());
    filled.setWidth(kRunnerShare * bar.width());
    filled = filled.intersected(bar);
  } else {
    filled.setWidth(bar.width() * (value() - minimum()) / (maximum() - minimum()));
  }
  if (filled.width() <= 0) return;
  painter.setBrush(ActiveTheme().primary);
  painter.drawRoundedRect(filled, radius, radius);
}

}  // namespace kalvo

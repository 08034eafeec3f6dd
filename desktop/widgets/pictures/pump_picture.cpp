#include "desktop/widgets/pictures/pump_picture.h"

#include <QPainter>

#include "desktop/theme.h"
#include "desktop/widgets/pictures/drawing.h"

namespace kalvo {
namespace {

constexpr QSize kPumpSize(180, 110);

}  // namespace

PumpPicture::PumpPicture(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setAccessibleName("Αντλία");
}

QSize PumpPicture::sizeHint() const { return kPumpSize; }

void PumpPicture::paintEvent(QPaintEvent*) {
  const Theme& theme = ActiveTheme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QPointF centre(kPumpSize.width() / 2.0, kPumpSize.height() / 2.0);
  constexpr double kRadius = 52;
  DrawPipe(painter, QRectF(0, centre.y() - 12, kPumpSize.width(), 24));
  DrawArrow(painter, {6, centre.y()}, {36, centre.y()}, theme.primary);
  DrawArrow(painter, {centre.x() + kRadius + 8, centre.y()}, {178, centre.y()}, theme.primary);
  painter.setPen(QPen(theme.primary, 3.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(theme.surface);
  painter.drawEllipse(centre, kRadius, kRadius);
  // The two lines run from the circle to the outlet.
  const QPointF outlet = centre + QPointF(kRadius, 0);
  const QPointF start(-0.55 * kRadius, 0.835 * kRadius);
  painter.drawPolyline(QPolygonF{centre + QPointF(start.x(), -start.y()), outlet, centre + start});
}

}  // namespace kalvo

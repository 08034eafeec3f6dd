#include "desktop/widgets/pictures/drawing.h"

#include <QFontMetricsF>
#include <QPainter>

#include "desktop/theme.h"

namespace kalvo {

void DrawArrow(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& color) {
  constexpr double kHeadLength = 12;
  constexpr double kHeadHalf = 6.5;
  const double forward = to.x() >= from.x() ? 1 : -1;
  const QPointF neck = to - QPointF(forward * kHeadLength, 0);
  painter.setPen(QPen(color, 3.2, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(from, neck + QPointF(forward, 0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawPolygon(QPolygonF{to, neck + QPointF(0, -kHeadHalf), neck + QPointF(0, kHeadHalf)});
}

void DrawPipe(QPainter& painter, const QRectF& pipe) {
  const Theme& theme = ActiveTheme();
  painter.fillRect(pipe, theme.soft);
  painter.setPen(QPen(theme.ink2, 2.5, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(pipe.topLeft(), pipe.topRight());
  painter.drawLine(pipe.bottomLeft(), pipe.bottomRight());
}

double NodeHalfWidth(const QString& name, double radius) {
  constexpr double kRoomBesideName = 10;
  const QFontMetricsF metrics(ThemeFont(kHeadPoints, true));
  return qMax(radius, metrics.horizontalAdvance(name) / 2 + kRoomBesideName);
}

void DrawNode(QPainter& painter, const QPointF& centre, double radius, const QString& name) {
  const Theme& theme = ActiveTheme();
  const double half = NodeHalfWidth(name, radius);
  const QRectF node(centre.x() - half, centre.y() - radius, 2 * half, 2 * radius);
  painter.setPen(QPen(theme.primary, 2.5));
  painter.setBrush(theme.surface);
  painter.drawRoundedRect(node, radius, radius);
  painter.setFont(ThemeFont(kHeadPoints, true));
  painter.setPen(theme.ink);
  painter.drawText(node, Qt::AlignCenter, name);
}

}  // namespace kalvo

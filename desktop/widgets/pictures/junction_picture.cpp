#include "desktop/widgets/pictures/junction_picture.h"

#include <QPainter>
#include <algorithm>

#include "desktop/qt_text.h"
#include "desktop/theme.h"
#include "desktop/widgets/pictures/drawing.h"

namespace kalvo {
namespace {

// Lengths from the centre on the drawing's own ground, which is shown at kScale.
constexpr double kHalfWidth = 100;
constexpr double kDown = 80;
constexpr double kTeeAbove = 36;
constexpr double kWall = 15;  // half the width of a pipe
constexpr double kScale = 0.8;

struct LegPlace {
  double angle;      // clockwise from the right
  double far, near;  // ends of its arrow
};

LegPlace PlaceOf(JunctionLeg leg) {
  switch (leg) {
    case JunctionLeg::kLeft:
      return {180, 82, 26};
    case JunctionLeg::kRight:
      return {0, 82, 26};
    case JunctionLeg::kDown:
      return {90, 70.4, 28.8};
    case JunctionLeg::kUp:
      break;
  }
  return {270, 70.4, 28.8};
}

}  // namespace

JunctionPicture::JunctionPicture(QWidget* parent) : PaintedPicture(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void JunctionPicture::SetContent(const JunctionContent& junction) {
  junction_ = junction;
  setAccessibleName(ToQt(junction.caption));
  setAccessibleDescription(ToQt(junction.told));
  updateGeometry();
  update();
}

bool JunctionPicture::IsCross() const {
  return std::ranges::count(junction_.legs, JunctionLeg::kUp, &JunctionFlow::leg) != 0;
}

QSize JunctionPicture::sizeHint() const {
  const double above = IsCross() ? kDown : kTeeAbove;
  return (QSizeF(2 * kHalfWidth, above + kDown) * kScale).toSize();
}

void JunctionPicture::paintEvent(QPaintEvent*) {
  const Theme& theme = ActiveTheme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kScale, kScale);
  painter.translate(kHalfWidth, IsCross() ? kDown : kTeeAbove);
  painter.fillRect(QRectF(-kHalfWidth, -kWall, 2 * kHalfWidth, 2 * kWall), theme.soft);
  const double top = IsCross() ? -kDown : 0;
  painter.fillRect(QRectF(-kWall, top, 2 * kWall, kDown - top), theme.soft);
  DrawWalls(painter);
  for (const JunctionFlow& flow : junction_.legs) {
    const LegPlace place = PlaceOf(flow.leg);
    painter.save();
    painter.rotate(place.angle);
    DrawArrow(painter, {flow.in ? place.far : place.near, 0}, {flow.in ? place.near : place.far, 0},
              theme.primary);
    painter.restore();
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme.ink2);
  painter.drawEllipse(QPointF(0, 0), 4, 4);
}

void JunctionPicture::DrawWalls(QPainter& painter) const {
  painter.setPen(QPen(ActiveTheme().ink2, 2.5, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  for (const double side : {-1.0, 1.0}) {
    painter.drawPolyline(
        QPolygonF{{side * kHalfWidth, kWall}, {side * kWall, kWall}, {side * kWall, kDown}});
    if (!IsCross()) continue;
    painter.drawPolyline(
        QPolygonF{{side * kHalfWidth, -kWall}, {side * kWall, -kWall}, {side * kWall, -kDown}});
  }
  if (!IsCross()) painter.drawLine(QPointF(-kHalfWidth, -kWall), QPointF(kHalfWidth, -kWall));
}

}  // namespace kalvo

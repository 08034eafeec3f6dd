#include "desktop/widgets/pictures/junction_picture.h"

#include <QPainter>

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

struct Leg {
  const char* name;
  double angle;      // of the leg, clockwise from the right
  double far, near;  // ends of its arrow
};

constexpr Leg kLegs[] = {
    {"αριστερό σκέλος", 180, 82, 26},
    {"δεξιό σκέλος", 0, 82, 26},
    {"κάτω σκέλος", 90, 70.4, 28.8},
    {"άνω σκέλος", 270, 70.4, 28.8},
};

}  // namespace

JunctionPicture::JunctionPicture(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  SetFlows(flows_);
}

void JunctionPicture::SetFlows(const QString& flows) {
  flows_ = flows.left(4);
  QStringList spoken;
  for (qsizetype i = 0; i < flows_.size(); ++i) {
    spoken << QString("%1: ροή %2 τον κόμβο").arg(kLegs[i].name, flows_[i] == 'i' ? "προς" : "από");
  }
  setAccessibleName(IsCross() ? "Σταυρός" : "Ταυ");
  setAccessibleDescription(spoken.join("; "));
  updateGeometry();
  update();
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
  for (qsizetype i = 0; i < flows_.size(); ++i) {
    const Leg& leg = kLegs[i];
    const bool in = flows_[i] == 'i';
    painter.save();
    painter.rotate(leg.angle);
    DrawArrow(painter, {in ? leg.far : leg.near, 0}, {in ? leg.near : leg.far, 0}, theme.primary);
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

#include "desktop/widgets/kind/kind_picture.h"

#include <QPainter>

#include "desktop/theme.h"

namespace kalvo {
namespace {

// Drawn on a ground of this size and scaled to the widget.
constexpr QSizeF kGround(250, 120);

QPen PipePen(const QColor& color) {
  return QPen(color, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void DrawRadiator(QPainter& painter, double x) {
  const Theme& theme = ActiveTheme();
  painter.setPen(QPen(theme.ink2, 2.5));
  painter.drawLine(QPointF(x, 20), QPointF(x, 92));
  painter.setPen(QPen(theme.ink2, 2));
  painter.setBrush(theme.surface);
  painter.drawRoundedRect(QRectF(x - 13, 38, 26, 36), 5, 5);
  for (const double rib : {-6.0, 0.0, 6.0}) {
    painter.drawLine(QPointF(x + rib, 45), QPointF(x + rib, 67));
  }
}

void DrawPump(QPainter& painter, const QPointF& centre) {
  const Theme& theme = ActiveTheme();
  painter.setPen(QPen(theme.primary, 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(theme.surface);
  painter.drawEllipse(centre, 20, 20);
  painter.setBrush(theme.soft);
  painter.setPen(QPen(theme.primary, 1.5));
  painter.drawPolygon(
      QPolygonF{centre + QPointF(0, -17), centre + QPointF(-10, 10), centre + QPointF(10, 10)});
}

void DrawHead(QPainter& painter, const QPointF& tip, double length, const QColor& color) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawPolygon(QPolygonF{tip, tip - QPointF(length, 8), tip - QPointF(length, -8)});
}

void DrawClosed(QPainter& painter) {
  const Theme& theme = ActiveTheme();
  for (const double x : {107.0, 161.0, 215.0}) DrawRadiator(painter, x);
  painter.setPen(PipePen(theme.primary));
  painter.drawPolyline(QPolygonF{{35, 40}, {35, 20}, {215, 20}});
  painter.setPen(PipePen(theme.water));
  painter.drawPolyline(QPolygonF{{35, 72}, {35, 92}, {215, 92}});
  DrawHead(painter, {78, 20}, 11, theme.primary);
  DrawHead(painter, {60, 92}, -11, theme.water);
  DrawPump(painter, {35, 56});
}

// Under the pipe at (x, y): stem, handle, spout and a drop.
void DrawTap(QPainter& painter, double x, double y) {
  const Theme& theme = ActiveTheme();
  painter.setPen(QPen(theme.primary, 4));
  painter.drawLine(QPointF(x, y), QPointF(x, y + 10));
  painter.setPen(QPen(theme.ink2, 3, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.drawLine(QPointF(x - 9, y + 12), QPointF(x + 8, y + 12));
  painter.drawPolyline(QPolygonF{{x, y + 12}, {x, y + 18}, {x + 9, y + 18}, {x + 9, y + 26}});
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme.water);
  painter.drawEllipse(QPointF(x + 9, y + 33), 2.2, 3.2);
}

void DrawOpen(QPainter& painter) {
  const Theme& theme = ActiveTheme();
  painter.setPen(PipePen(theme.primary));
  painter.drawPolyline(QPolygonF{{38, 96}, {68, 96}, {68, 8}, {184, 8}});
  painter.drawLine(QPointF(68, 50), QPointF(232, 50));
  for (const double x : {124.0, 184.0}) DrawTap(painter, x, 8);
  for (const double x : {124.0, 178.0, 232.0}) DrawTap(painter, x, 50);
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme.surface);
  const QRectF tank(6, 80, 34, 32);
  painter.drawRect(tank);
  painter.setBrush(theme.water);
  painter.drawRect(tank.adjusted(0, 14, 0, 0));
  painter.setPen(QPen(theme.ink2, 2.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(tank, 3, 3);
}

}  // namespace

KindPicture::KindPicture(QWidget* parent) : QWidget(parent) {
  // Clicks belong to the card.
  setAttribute(Qt::WA_TransparentForMouseEvents);
  SetOpenSystem(false);
}

void KindPicture::SetOpenSystem(bool open) {
  open_ = open;
  setAccessibleName(open ? "Σχέδιο ανοικτού συστήματος" : "Σχέδιο κλειστού συστήματος");
  update();
}

QSize KindPicture::sizeHint() const { return kGround.toSize(); }

void KindPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double scale = qMin(1.0, qMin(width() / kGround.width(), height() / kGround.height()));
  painter.translate((width() - scale * kGround.width()) / 2,
                    (height() - scale * kGround.height()) / 2);
  painter.scale(scale, scale);
  if (open_) {
    DrawOpen(painter);
  } else {
    DrawClosed(painter);
  }
}

}  // namespace kalvo

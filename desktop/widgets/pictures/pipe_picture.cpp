#include "desktop/widgets/pictures/pipe_picture.h"

#include <QPainter>

#include "desktop/qt_text.h"
#include "desktop/theme.h"
#include "desktop/widgets/pictures/drawing.h"

namespace kalvo {
namespace {

constexpr double kNodeRadius = 22;
constexpr double kNodeInset = 44;  // centre of a node from the edge
constexpr double kCutPipeHalf = 13;
constexpr double kCentreY = 28;
constexpr int kPipeHeight = 84;

}  // namespace

PipePicture::PipePicture(QWidget* parent) : PaintedPicture(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PipePicture::SetContent(const PipeContent& pipe) {
  pipe_ = pipe;
  setAccessibleName(QString("Τμήμα %1/%2").arg(ToQt(pipe_.from), ToQt(pipe_.to)));
  setAccessibleDescription(ToQt(pipe_.caption));
  update();
}

QSize PipePicture::sizeHint() const { return {420, kPipeHeight}; }

void PipePicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QPointF from(kNodeInset, kCentreY);
  const QPointF to(width() - kNodeInset, kCentreY);
  const Theme& theme = ActiveTheme();
  DrawPipe(painter, QRectF(from - QPointF(0, kCutPipeHalf), to + QPointF(0, kCutPipeHalf)));
  constexpr double kArrowGap = 20;
  DrawArrow(painter, from + QPointF(NodeHalfWidth(ToQt(pipe_.from), kNodeRadius) + kArrowGap, 0),
            to - QPointF(NodeHalfWidth(ToQt(pipe_.to), kNodeRadius) + kArrowGap, 0), theme.primary);
  DrawNodeWithNote(painter, from, ToQt(pipe_.from), ToQt(pipe_.from_note));
  DrawNodeWithNote(painter, to, ToQt(pipe_.to), ToQt(pipe_.to_note));
  painter.setFont(ThemeFont(kHintPoints));
  painter.setPen(theme.ink2);
  painter.drawText(QRectF(2 * kNodeInset, kCentreY + 16, width() - 4 * kNodeInset, 20),
                   Qt::AlignCenter, ToQt(pipe_.caption));
}

void PipePicture::DrawNodeWithNote(QPainter& painter, const QPointF& centre, const QString& name,
                                   const QString& note) const {
  DrawNode(painter, centre, kNodeRadius, name);
  painter.setFont(ThemeFont(kHintPoints));
  painter.setPen(ActiveTheme().ink3);
  painter.drawText(
      QRectF(centre.x() - kNodeInset, centre.y() + kNodeRadius + 4, 2 * kNodeInset, 20),
      Qt::AlignCenter, note);
}

}  // namespace kalvo

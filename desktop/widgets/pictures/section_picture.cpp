#include "desktop/widgets/pictures/section_picture.h"

#include <QPainter>

#include "desktop/icons.h"
#include "desktop/qt_text.h"
#include "desktop/theme.h"
#include "desktop/widgets/pictures/drawing.h"

namespace kalvo {
namespace {

constexpr int kSketchWidth = 200;
constexpr int kSketchTextHeight = 20;
constexpr double kSketchRadius = 19;
constexpr double kSketchInset = 52;  // centre of a node from the edge
constexpr double kSketchPipeHalf = 11;
constexpr double kSketchCentreY = 48;
constexpr int kFittingsTop = 104;
constexpr int kFittingHeight = 32;
constexpr int kFittingTile = 26;
constexpr int kFittingIcon = 18;
constexpr int kCountLeft = 36;
constexpr int kCountGap = 6;
constexpr auto kSketchLeft = Qt::AlignLeft | Qt::AlignVCenter;

}  // namespace

SectionPicture::SectionPicture(QWidget* parent) : PaintedPicture(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SectionPicture::SetContent(const SectionSketchContent& sketch) {
  sketch_ = sketch;
  QStringList told;
  for (const std::string* text : {&sketch.length, &sketch.before, &sketch.after}) {
    if (!text->empty()) told << ToQt(*text);
  }
  for (const FittingLine& fitting : sketch.fittings) {
    told << (ToQt(fitting.count) + QLatin1Char(' ') + ToQt(fitting.caption)).trimmed();
  }
  setAccessibleName(
      QString("%1 %2, %3 %4")
          .arg(ToQt(sketch.from_note), ToQt(sketch.from), ToQt(sketch.to_note), ToQt(sketch.to)));
  setAccessibleDescription(told.join("; "));
  updateGeometry();
  update();
}

QSize SectionPicture::sizeHint() const {
  return {kSketchWidth, kFittingsTop + kFittingHeight * static_cast<int>(sketch_.fittings.size())};
}

void SectionPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  DrawNeighbours(painter);
  DrawSection(painter);
  int top = kFittingsTop;
  for (const FittingLine& fitting : sketch_.fittings) {
    DrawFitting(painter, fitting, top);
    top += kFittingHeight;
  }
}

// What comes before and after: in words, and as a dashed pipe where there is something.
void SectionPicture::DrawNeighbours(QPainter& painter) const {
  const Theme& theme = ActiveTheme();
  const QFont font = ThemeFont(kHintPoints);
  const QFontMetrics metrics(font);
  const QString before = ToQt(sketch_.before);
  const QString after = ToQt(sketch_.after);
  const int half = before.isEmpty() || after.isEmpty() ? width() : width() / 2 - 4;
  painter.setFont(font);
  painter.setPen(theme.ink2);
  painter.drawText(QRect(0, 0, width(), kSketchTextHeight), kSketchLeft,
                   metrics.elidedText(before, Qt::ElideRight, half));
  painter.drawText(QRect(0, 0, width(), kSketchTextHeight), Qt::AlignRight | Qt::AlignVCenter,
                   metrics.elidedText(after, Qt::ElideRight, half));
  painter.setPen(QPen(theme.ink2, 1.6, Qt::DashLine, Qt::FlatCap));
  if (!before.isEmpty()) {
    painter.drawLine(QPointF(0, kSketchCentreY), QPointF(kSketchInset, kSketchCentreY));
  }
  if (!after.isEmpty()) {
    painter.drawLine(QPointF(width() - kSketchInset, kSketchCentreY),
                     QPointF(width(), kSketchCentreY));
  }
}

void SectionPicture::DrawSection(QPainter& painter) const {
  const Theme& theme = ActiveTheme();
  const QPointF from(kSketchInset, kSketchCentreY);
  const QPointF to(width() - kSketchInset, kSketchCentreY);
  const QString names[] = {ToQt(sketch_.from), ToQt(sketch_.to)};
  const double halves[] = {NodeHalfWidth(names[0], kSketchRadius),
                           NodeHalfWidth(names[1], kSketchRadius)};
  DrawPipe(painter, QRectF(from - QPointF(0, kSketchPipeHalf), to + QPointF(0, kSketchPipeHalf)));
  constexpr double kArrowGap = 8;
  DrawArrow(painter, from + QPointF(halves[0] + kArrowGap, 0),
            to - QPointF(halves[1] + kArrowGap, 0), theme.primary);
  DrawNode(painter, from, kSketchRadius, names[0]);
  DrawNode(painter, to, kSketchRadius, names[1]);
  painter.setFont(ThemeFont(kHintPoints));
  painter.setPen(theme.ink);
  const double between = to.x() - from.x();
  painter.drawText(
      QRectF(from.x(), kSketchCentreY + kSketchPipeHalf + 2, between, kSketchTextHeight),
      Qt::AlignCenter, ToQt(sketch_.length));
  painter.setPen(theme.ink2);
  const auto note = [&](const QPointF& node, const std::string& text) {
    painter.drawText(QRectF(node.x() - kSketchInset, kSketchCentreY + kSketchRadius + 2,
                            2 * kSketchInset, kSketchTextHeight),
                     Qt::AlignCenter, ToQt(text));
  };
  note(from, sketch_.from_note);
  note(to, sketch_.to_note);
}

void SectionPicture::DrawFitting(QPainter& painter, const FittingLine& fitting, int top) const {
  const Theme& theme = ActiveTheme();
  if (!fitting.icon.empty()) {
    painter.setPen(QPen(theme.primary, 1.5));
    painter.setBrush(theme.soft);
    painter.drawRoundedRect(QRectF(1, top + 1, kFittingTile, kFittingTile), 6, 6);
    constexpr int kInset = 1 + (kFittingTile - kFittingIcon) / 2;
    painter.drawPixmap(
        kInset, top + kInset,
        IconPixmap(ToQt(fitting.icon), kFittingIcon, devicePixelRatioF(), theme.softink));
  }
  const QString count = ToQt(fitting.count);
  const QFont bold = ThemeFont(kHintPoints, true);
  const QFont font = ThemeFont(kHintPoints);
  const int caption_left =
      count.isEmpty() ? kCountLeft
                      : kCountLeft + QFontMetrics(bold).horizontalAdvance(count) + kCountGap;
  painter.setPen(theme.ink);
  painter.setFont(bold);
  painter.drawText(QRect(kCountLeft, top, width(), kFittingTile + 2), kSketchLeft, count);
  painter.setFont(font);
  painter.drawText(
      QRect(caption_left, top, width() - caption_left, kFittingTile + 2), kSketchLeft,
      QFontMetrics(font).elidedText(ToQt(fitting.caption), Qt::ElideRight, width() - caption_left));
}

}  // namespace kalvo

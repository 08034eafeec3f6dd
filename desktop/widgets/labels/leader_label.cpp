#include "desktop/widgets/labels/leader_label.h"

#include <QPainter>
#include <QStyle>

#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kShortestRun = 4;
constexpr int kLeaderGap = 8;  // between text, leader and value
constexpr int kShortestLeader = 24;
constexpr int kNarrowingStep = 8;

int TextFlags(const QLabel& label) {
  const int mnemonic = label.buddy() != nullptr ? Qt::TextShowMnemonic : 0;
  return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | mnemonic;
}

int TextWidth(const QLabel& label) {
  const QString text = LeaderLabel::PaintedText(label.text());
  return label.fontMetrics().size(TextFlags(label), text).width();
}

}  // namespace

QString LeaderLabel::PaintedText(const QString& caption) {
  QString text = caption.trimmed();
  qsizetype end = text.size();
  while (end > 0 && text[end - 1] == '.') --end;
  if (text.size() - end >= kShortestRun) text.truncate(end);
  return text.trimmed();
}

QSize LeaderLabel::sizeHint() const {
  return {TextWidth(*this) + kLeaderGap + kShortestLeader + kLeaderGap, fontMetrics().height() + 4};
}

QSize LeaderLabel::minimumSizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  const int whole = TextWidth(*this);
  if (lines_ == 1) return {whole, metrics.height()};
  const QString text = PaintedText(this->text());
  const auto height = [&](int width) {
    return metrics.boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, text).height();
  };
  int width = whole / 2;
  while (width < whole && height(width) > lines_ * metrics.lineSpacing()) width += kNarrowingStep;
  return {qMin(width, whole), lines_ * metrics.lineSpacing()};
}

void LeaderLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect area = contentsRect();
  const bool breaks = TextWidth(*this) > area.width() && lines_ > 1;
  const int flags = TextFlags(*this) | (breaks ? static_cast<int>(Qt::TextWordWrap) : 0);
  style()->drawItemText(&painter, area, flags, palette(), isEnabled(), PaintedText(text()),
                        foregroundRole());
  const QFontMetrics metrics = fontMetrics();
  const double base = area.center().y() - metrics.height() / 2.0 + metrics.ascent() + 0.5;
  const double from = area.left() + TextWidth(*this) + kLeaderGap;
  const double to = area.right() - kLeaderGap;
  if (to <= from) return;
  painter.setRenderHint(QPainter::Antialiasing);
  QPen pen(ActiveTheme().border, 1.2);
  pen.setDashPattern({1, 4});
  painter.setPen(pen);
  painter.drawLine(QPointF(from, base), QPointF(to, base));
}

}  // namespace kalvo

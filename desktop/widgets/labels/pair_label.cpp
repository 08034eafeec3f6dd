#include "desktop/widgets/labels/pair_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kPairGap = 16;  // between the widest label and the values
constexpr int kShortestValue = 64;

struct LabelAndValue {
  QString label;  // with its colon
  QString value;
};

LabelAndValue Split(const QString& text) {
  const qsizetype colon = text.indexOf(QLatin1String(" :"));
  if (colon < 0) return {QString(), text.trimmed()};
  return {text.left(colon + 2).trimmed(), text.mid(colon + 2).trimmed()};
}

QString Elided(const QWidget& widget, const QString& value, int width) {
  return widget.fontMetrics().elidedText(value, Qt::ElideMiddle, width);
}

}  // namespace

int PairLabel::OwnWidth() const { return fontMetrics().horizontalAdvance(Split(text()).label); }

int PairLabel::ValueLeft() const {
  int widest = OwnWidth();
  for (const auto* line :
       parentWidget()->findChildren<PairLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
    widest = std::max(widest, line->OwnWidth());
  }
  return widest + kPairGap;
}

QSize PairLabel::sizeHint() const {
  return {ValueLeft() + fontMetrics().horizontalAdvance(Split(text()).value),
          fontMetrics().height() + 4};
}

QSize PairLabel::minimumSizeHint() const {
  return {ValueLeft() + kShortestValue, fontMetrics().height()};
}

bool PairLabel::event(QEvent* event) {
  const QString value = Split(text()).value;
  if (event->type() == QEvent::ToolTip &&
      Elided(*this, value, contentsRect().width() - ValueLeft()) != value) {
    QToolTip::showText(static_cast<const QHelpEvent*>(event)->globalPos(), value, this);
    return true;
  }
  return QLabel::event(event);
}

void PairLabel::paintEvent(QPaintEvent*) {
  const LabelAndValue pair = Split(text());
  const QRect area = contentsRect();
  const QRect value_area = area.adjusted(ValueLeft(), 0, 0, 0);
  constexpr int kFlags = static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
  QPainter painter(this);
  painter.setPen(ActiveTheme().ink2);
  painter.drawText(area, kFlags, pair.label);
  painter.setPen(property("tone") == "quiet" ? ActiveTheme().ink2 : ActiveTheme().ink);
  const QString value = Elided(*this, pair.value, value_area.width());
  painter.drawText(value_area, kFlags, value);
}

}  // namespace kalvo

#include "desktop/widgets/results/section_steps.h"

#include <QPainter>

#include "desktop/qt_text.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kTile = 28;
constexpr int kStepGap = 11;
constexpr int kStepHeight = 52;
constexpr int kUnitGap = 6;
constexpr double kResultPoints = 12;
constexpr auto kLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr auto kRight = Qt::AlignRight | Qt::AlignVCenter;

}  // namespace

SectionSteps::SectionSteps(QWidget* parent) : PaintedPicture(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SectionSteps::SetContent(const StepsContent& steps) {
  steps_ = steps;
  QStringList spoken;
  for (const StepLine& step : steps_.lines) {
    spoken << QString("%1 %2 %3").arg(ToQt(step.what), ToQt(step.value), ToQt(step.unit)).trimmed();
  }
  setAccessibleName("Υπολογισμός του τμήματος");
  setAccessibleDescription(spoken.join("; "));
  updateGeometry();
  update();
}

int SectionSteps::UnitWidth() const {
  const QFontMetrics metrics(ThemeFont(kHintPoints));
  int width = 0;
  for (const StepLine& step : steps_.lines) {
    width = qMax(width, metrics.horizontalAdvance(ToQt(step.unit)));
  }
  return width;
}

QSize SectionSteps::minimumSizeHint() const {
  const QFontMetrics names(ThemeFont(kBodyPoints, true));
  const QFontMetrics values(ThemeFont(kResultPoints, true));
  int width = 0;
  for (const StepLine& step : steps_.lines) {
    width = qMax(width, names.horizontalAdvance(ToQt(step.what)) + kStepGap +
                            values.horizontalAdvance(ToQt(step.value)));
  }
  return {kTile + kStepGap + width + kUnitGap + UnitWidth(),
          kStepHeight * static_cast<int>(steps_.lines.size())};
}

QSize SectionSteps::sizeHint() const { return minimumSizeHint(); }

void SectionSteps::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const auto count = static_cast<int>(steps_.lines.size());
  painter.setPen(QPen(ActiveTheme().border, 1.2));
  const double x = kTile / 2.0;
  if (count > 1) {
    painter.drawLine(QPointF(x, kTile), QPointF(x, (count - 1) * kStepHeight + kTile / 2.0));
  }
  for (int i = 0; i < count; ++i) {
    DrawStep(painter, steps_.lines[static_cast<std::size_t>(i)],
             QRect(0, i * kStepHeight, width(), kStepHeight), i + 1 == count);
  }
}

void SectionSteps::DrawStep(QPainter& painter, const StepLine& step, const QRect& row,
                            bool is_last) const {
  const Theme& theme = ActiveTheme();
  const QRectF tile(row.left() + 1, row.top() + 1, kTile - 2, kTile - 2);
  painter.setPen(QPen(theme.primary, 1.5));
  painter.setBrush(is_last ? theme.primary : theme.soft);
  painter.drawRoundedRect(tile, 6, 6);
  painter.setFont(ThemeFont(kBodyPoints, true));
  painter.setPen(is_last ? theme.onprimary : theme.softink);
  painter.drawText(tile, Qt::AlignCenter, ToQt(step.symbol));

  const QFontMetrics small(ThemeFont(kHintPoints));
  const int text_left = kTile + kStepGap;
  const int unit_left = row.right() - UnitWidth();
  const QRect first_line(text_left, row.top() + 2, unit_left - kUnitGap - text_left, 20);
  painter.setPen(theme.ink);
  painter.setFont(ThemeFont(kBodyPoints, is_last));
  painter.drawText(first_line, kLeft, ToQt(step.what));
  painter.setFont(ThemeFont(is_last ? kResultPoints : kBodyPoints, true));
  painter.drawText(first_line, kRight, ToQt(step.value));
  painter.setPen(theme.ink2);
  painter.setFont(ThemeFont(kHintPoints));
  painter.drawText(QRect(unit_left, first_line.top(), UnitWidth() + 1, 20), kLeft, ToQt(step.unit));

  const QRect second_line(text_left, row.top() + 22, row.right() - text_left, 18);
  painter.setPen(theme.ink3);
  painter.drawText(second_line, kLeft,
                   small.elidedText(ToQt(step.formula), Qt::ElideRight, second_line.width()));
}

}  // namespace kalvo

#include "desktop/widgets/pictures/outlet_bars.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/qt_text.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr double kScaleWidth = 30;      // of the numbers at the left
constexpr double kWordsHeight = 18;     // a line of words
constexpr double kNarrowestPlace = 26;  // of a column with its gap
constexpr double kWidestPlace = 48;
constexpr int kMostShown = 24;
constexpr int kMostLines = 4;

// The largest of 1, 2, 5 times a power of ten that leaves no more than the lines wanted.
double StepFor(double most) {
  double step = std::pow(10, std::floor(std::log10(most / kMostLines)));
  for (const double factor : {2.0, 2.5, 2.0}) {
    if (most / step <= kMostLines) break;
    step *= factor;
  }
  return step;
}

void FillHatched(QPainter& painter, const QRectF& rect) {
  const Theme& theme = ActiveTheme();
  painter.fillRect(rect, theme.surface);
  painter.fillRect(rect, QBrush(theme.ink2, Qt::BDiagPattern));
  painter.setPen(QPen(theme.ink2, 1));
  painter.drawRect(rect);
}

}  // namespace

OutletBars::OutletBars(QWidget* parent) : PaintedPicture(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName(QStringLiteral("Ύψος και πίεση ροής των υποδοχέων"));
}

void OutletBars::SetContent(const OutletChartContent& chart) {
  chart_ = chart;
  QStringList spoken;
  for (const OutletColumn& column : chart_.columns) {
    spoken << QStringLiteral("τμήμα ") + ToQt(column.section) + ": " + ToQt(column.total) + " m";
  }
  setAccessibleDescription(spoken.join("; "));
  update();
}

OutletBars::Scale OutletBars::ScaleFor(const QRectF& area) const {
  double most = 1;
  for (const OutletColumn& column : chart_.columns) {
    most = std::max(most, static_cast<double>(column.height) + column.pressure);
  }
  return {area, StepFor(most), most};
}

int OutletBars::FirstShown(int count) const {
  const int all = static_cast<int>(chart_.columns.size());
  const int current = chart_.current < 0 ? all - 1 : chart_.current;
  return std::clamp(current - count / 2, 0, std::max(all - count, 0));
}

void OutletBars::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setFont(ThemeFont(kHintPoints));
  const QRectF whole = QRectF(rect());
  const Scale scale = ScaleFor(whole.adjusted(kScaleWidth, kWordsHeight, -4, -3.5 * kWordsHeight));
  DrawLines(painter, scale);
  const int room =
      std::clamp(static_cast<int>(scale.area.width() / kNarrowestPlace), 1, kMostShown);
  const int count = std::min(room, static_cast<int>(chart_.columns.size()));
  const double width = std::min(scale.area.width() / std::max(count, 1), kWidestPlace);
  const int first = FirstShown(count);
  for (int i = 0; i < count; ++i) {
    const QRectF place(scale.area.left() + i * width, scale.area.top(), width, scale.area.height());
    DrawColumn(painter, scale, first + i, place);
  }
  painter.setPen(ActiveTheme().ink3);
  const QRectF words(0, scale.area.bottom() + kWordsHeight, whole.width(), kWordsHeight);
  const QString axis = QStringLiteral("α/α τμήματος · 0 : στάθμη της αντλίας");
  painter.drawText(words, Qt::AlignCenter,
                   painter.fontMetrics().elidedText(axis, Qt::ElideRight, rect().width()));
  DrawLegend(painter, words.translated(0, 1.4 * kWordsHeight));
}

void OutletBars::DrawLines(QPainter& painter, const Scale& scale) const {
  const Theme& theme = ActiveTheme();
  for (int i = 0; i * scale.step <= scale.most; ++i) {
    const double y = scale.Y(i * scale.step);
    painter.setPen(QPen(i == 0 ? theme.ink2 : theme.line, i == 0 ? 1.5 : 1));
    painter.drawLine(QPointF(scale.area.left(), y), QPointF(scale.area.right(), y));
    painter.setPen(theme.ink2);
    const QString height = QString::number(i * scale.step).replace('.', QChar(chart_.decimal));
    painter.drawText(QRectF(0, y - kWordsHeight / 2, kScaleWidth - 6, kWordsHeight),
                     Qt::AlignRight | Qt::AlignVCenter, height);
  }
}

void OutletBars::DrawColumn(QPainter& painter, const Scale& scale, int column,
                            const QRectF& place) const {
  const Theme& theme = ActiveTheme();
  const OutletColumn& outlet = chart_.columns[static_cast<std::size_t>(column)];
  const bool current = column == chart_.current;
  const double side = place.width() * 0.14;
  const QRectF bar = place.adjusted(side, 0, -side, 0);
  const double foot = scale.Y(outlet.height);
  const double top = scale.Y(static_cast<double>(outlet.height) + outlet.pressure);
  if (outlet.height > 0) {
    FillHatched(painter, QRectF(QPointF(bar.left(), foot), QPointF(bar.right(), bar.bottom())));
  }
  painter.fillRect(QRectF(QPointF(bar.left(), top), QPointF(bar.right(), foot)),
                   current ? theme.primary : theme.water);
  QFont font = painter.font();
  font.setBold(current);
  painter.setFont(font);
  painter.setPen(theme.ink);
  const QRectF wide = place.adjusted(-10, 0, 10, 0);
  painter.drawText(QRectF(wide.left(), top - kWordsHeight, wide.width(), kWordsHeight),
                   Qt::AlignCenter, ToQt(outlet.total));
  painter.drawText(QRectF(wide.left(), place.bottom(), wide.width(), kWordsHeight), Qt::AlignCenter,
                   ToQt(outlet.section));
  font.setBold(false);
  painter.setFont(font);
}

void OutletBars::DrawLegend(QPainter& painter, const QRectF& line) const {
  constexpr double kSwatchWidth = 22;
  const double half = line.width() / 2;
  const auto swatch = [&line](double left) {
    return QRectF(left, line.center().y() - 5, kSwatchWidth, 10);
  };
  const auto words = [&](double left, const char* text) {
    painter.setPen(ActiveTheme().ink2);
    painter.drawText(
        QRectF(left + kSwatchWidth + 6, line.top(), half - kSwatchWidth - 6, line.height()),
        Qt::AlignLeft | Qt::AlignVCenter, QString::fromUtf8(text));
  };
  FillHatched(painter, swatch(line.left()));
  words(line.left(), "ύψος, διαγραμμισμένο");
  painter.fillRect(swatch(line.left() + half), ActiveTheme().water);
  words(line.left() + half, "πίεση ροής");
}

}  // namespace kalvo

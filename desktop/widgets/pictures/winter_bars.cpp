#include "desktop/widgets/pictures/winter_bars.h"

#include <QPainter>
#include <algorithm>

#include "desktop/qt_text.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr double kNarrow = 5;      // places below have no room for an outline
constexpr double kCap = 2;         // height of the cap
constexpr double kWidestBar = 20;  // with its gap
constexpr double kGap = 0.15;      // of a column's place, on either side

}  // namespace

WinterBars::WinterBars(QWidget* parent) : PaintedPicture(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setAccessibleName(QStringLiteral("Παροχή χειμώνα ως προς του θέρους"));
}

void WinterBars::SetContent(const WinterChartContent& chart) {
  chart_ = chart;
  setAccessibleDescription(ToQt(chart_.told));
  update();
}

void WinterBars::paintEvent(QPaintEvent*) {
  if (chart_.columns.empty()) return;
  const Theme& theme = ActiveTheme();
  double most = 0;
  for (const WinterColumn& column : chart_.columns) {
    most = std::max({most, double{column.summer}, double{column.winter}});
  }
  if (most <= 0) return;
  QPainter painter(this);
  const QRectF area = QRectF(rect()).adjusted(0, kCap + 1, 0, -1);
  const double place =
      std::min(area.width() / static_cast<double>(chart_.columns.size()), kWidestBar);
  double left = area.left();
  for (const WinterColumn& column : chart_.columns) {
    const auto bar = [&](double flow) {
      const double height = area.height() * flow / most;
      return QRectF(left + place * kGap, area.bottom() - height, place * (1 - 2 * kGap), height);
    };
    const QRectF winter = bar(column.winter);
    if (place < kNarrow) painter.fillRect(bar(column.summer), theme.line);
    painter.fillRect(winter, theme.primary);
    painter.setPen(QPen(theme.ink3, 1));
    if (place >= kNarrow) painter.drawRect(bar(column.summer));
    if (column.winter > column.summer) {
      painter.fillRect(QRectF(winter.left(), winter.top() - kCap, winter.width(), kCap + 1),
                       theme.warn);
    }
    left += place;
  }
}

}  // namespace kalvo

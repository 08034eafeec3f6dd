#include "desktop/widgets/results/bar_pair.h"

#include <QPainter>
#include <algorithm>

#include "desktop/qt_text.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr double kPairBarHeight = 16;
constexpr double kPairGap = 6;
constexpr int kPairCaption = 20;

}  // namespace

BarPairPicture::BarPairPicture(QWidget* parent) : PaintedPicture(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setAccessibleName(QStringLiteral("Πριν και μετά"));
}

void BarPairPicture::SetContent(const BarPairContent& content) {
  content_ = content;
  setAccessibleDescription(ToQt(content_.told));
  update();
}

QSize BarPairPicture::sizeHint() const {
  return {240, static_cast<int>(2 * kPairBarHeight + kPairGap) + kPairCaption + 2};
}

void BarPairPicture::paintEvent(QPaintEvent*) {
  const double most = std::max(content_.before, content_.after);
  if (most <= 0) return;
  const Theme& theme = ActiveTheme();
  QPainter painter(this);
  const auto bar = [&](double value, double top) {
    return QRectF(0.5, top + 0.5, std::max((width() - 1) * value / most, 1.0), kPairBarHeight - 1);
  };
  painter.setPen(QPen(theme.ink3, 1));
  painter.setBrush(QBrush(theme.ink3, Qt::BDiagPattern));
  painter.drawRect(bar(content_.before, 0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme.primary);
  painter.drawRect(bar(content_.after, kPairBarHeight + kPairGap));
  painter.setFont(ThemeFont(kHintPoints));
  painter.setPen(theme.ink2);
  painter.drawText(QRect(0, height() - kPairCaption, width(), kPairCaption),
                   Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("πριν, διαγραμμισμένο · μετά, γεμάτο"));
}

}  // namespace kalvo

#include "desktop/widgets/results/drop_shares.h"

#include <QPainter>

#include "desktop/qt_text.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kSharesCaptionHeight = 22;
constexpr int kBarHeight = 14;
constexpr int kKeyTop = kSharesCaptionHeight + kBarHeight + 8;
constexpr int kKeyHeight = 24;
constexpr int kColumnGap = 20;
constexpr double kShareGap = 2;        // between two shares
constexpr double kNarrowestShare = 3;  // of a share that is not nothing

struct ShareLook {
  QColor Theme::*ground;
  QColor Theme::*line;
  Qt::BrushStyle hatch;
};

// Told apart by their hatch too, for whoever does not see the colours.
constexpr ShareLook kLooks[DropShares::kMostShares] = {
    {&Theme::primary, &Theme::primary, Qt::SolidPattern},
    {&Theme::water, &Theme::surface, Qt::VerPattern},
    {&Theme::surface, &Theme::ink2, Qt::BDiagPattern},
    {&Theme::header, &Theme::ink3, Qt::DiagCrossPattern},
};

void DrawSwatch(QPainter& painter, std::size_t i, const QRectF& rect) {
  const Theme& theme = ActiveTheme();
  const ShareLook& look = kLooks[i];
  painter.fillRect(rect, theme.*look.ground);
  if (look.hatch == Qt::SolidPattern) return;
  painter.fillRect(rect, QBrush(theme.*look.line, look.hatch));
  if (look.hatch == Qt::VerPattern) return;
  painter.setPen(QPen(theme.*look.line, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
}

}  // namespace

DropShares::DropShares(QWidget* parent) : PaintedPicture(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void DropShares::SetContent(const SharesContent& shares) {
  shares_ = shares;
  if (shares_.parts.size() > kMostShares) shares_.parts.resize(kMostShares);
  QStringList spoken;
  for (const Share& share : shares_.parts) spoken << ToQt(share.what) + ' ' + ToQt(share.value);
  setAccessibleName(ToQt(shares_.caption));
  setAccessibleDescription(spoken.join("; "));
  update();
}

QSize DropShares::sizeHint() const { return {300, kKeyTop + 2 * kKeyHeight}; }

void DropShares::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setFont(ThemeFont(kHintPoints));
  painter.setPen(ActiveTheme().ink3);
  painter.drawText(QRect(0, 0, width(), kSharesCaptionHeight - 4), Qt::AlignLeft | Qt::AlignVCenter,
                   ToQt(shares_.caption));
  DrawBar(painter, QRectF(0, kSharesCaptionHeight, width(), kBarHeight));
  const int column = (width() - kColumnGap) / 2;
  for (std::size_t i = 0; i < shares_.parts.size(); ++i) {
    const int left = i % 2 == 0 ? 0 : column + kColumnGap;
    const int top = kKeyTop + (i < 2 ? 0 : kKeyHeight);
    DrawKey(painter, i, QRect(left, top, column, kKeyHeight));
  }
}

void DropShares::DrawBar(QPainter& painter, const QRectF& bar) const {
  double total = 0;
  double shown = 0;
  for (const Share& share : shares_.parts) {
    total += qMax(share.fraction, 0.0);
    if (share.fraction > 0) ++shown;
  }
  if (total <= 0) {
    painter.fillRect(bar, ActiveTheme().header);
    return;
  }
  const double free_width = bar.width() - shown * kNarrowestShare - (shown - 1) * kShareGap;
  double left = bar.left();
  for (std::size_t i = 0; i < shares_.parts.size(); ++i) {
    const double fraction = shares_.parts[i].fraction;
    if (fraction <= 0) continue;
    const double width = kNarrowestShare + free_width * fraction / total;
    DrawSwatch(painter, i, QRectF(left, bar.top(), width, bar.height()));
    left += width + kShareGap;
  }
}

void DropShares::DrawKey(QPainter& painter, std::size_t i, const QRect& cell) const {
  constexpr double kSwatch = 11;
  const Theme& theme = ActiveTheme();
  DrawSwatch(painter, i, QRectF(cell.left(), cell.center().y() - kSwatch / 2, kSwatch, kSwatch));
  painter.setPen(theme.ink2);
  const QRect words = cell.adjusted(static_cast<int>(kSwatch) + 6, 0, 0, 0);
  const QFontMetrics metrics(painter.font());
  const QString value = ToQt(shares_.parts[i].value);
  const int room = words.width() - metrics.horizontalAdvance(value + ' ');
  painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter,
                   metrics.elidedText(ToQt(shares_.parts[i].what), Qt::ElideRight, room));
  painter.setPen(theme.ink);
  painter.drawText(words, Qt::AlignRight | Qt::AlignVCenter, value);
}

}  // namespace kalvo

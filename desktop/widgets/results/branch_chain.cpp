#include "desktop/widgets/results/branch_chain.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <QtMath>
#include <algorithm>

#include "desktop/qt_text.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr double kSideMargin = 20;
constexpr int kCaptionHeight = 20;
constexpr double kChainY = kCaptionHeight + 13;
constexpr int kNamesTop = kCaptionHeight + 22;
constexpr int kBranchHeight = kNamesTop + 18;
constexpr double kChainNodeRadius = 5;

}  // namespace

BranchChain::BranchChain(QWidget* parent) : PaintedPicture(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void BranchChain::SetContent(const ChainContent& branch) {
  branch_ = branch;
  setAccessibleName(ToQt(branch_.caption) + ", " + ToQt(branch_.total));
  QStringList names;
  for (qsizetype i = 0; i < NodeCount(); ++i) names << NodeName(i);
  QString spoken = names.join(", ");
  if (branch_.current >= 0 && branch_.current + 1 < NodeCount()) {
    spoken += QString("; τρέχον τμήμα %1/%2")
                  .arg(NodeName(branch_.current), NodeName(branch_.current + 1));
  }
  setAccessibleDescription(spoken);
  update();
}

QSize BranchChain::sizeHint() const { return {400, kBranchHeight}; }

QString BranchChain::NodeName(qsizetype node) const {
  return ToQt(branch_.nodes[static_cast<std::size_t>(node)]);
}

double BranchChain::NodeX(qsizetype node) const {
  const auto stretches = static_cast<double>(qMax(NodeCount() - 1, qsizetype{1}));
  return kSideMargin + (width() - 2 * kSideMargin) * static_cast<double>(node) / stretches;
}

void BranchChain::paintEvent(QPaintEvent*) {
  const Theme& theme = ActiveTheme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(ThemeFont(kHintPoints));
  painter.setPen(theme.ink3);
  const QRect head(0, 0, width(), kCaptionHeight);
  painter.drawText(head, Qt::AlignLeft | Qt::AlignVCenter, ToQt(branch_.caption));
  painter.setPen(theme.ink2);
  painter.drawText(head, Qt::AlignRight | Qt::AlignVCenter, ToQt(branch_.total));
  DrawSections(painter);
  DrawNodes(painter);
  DrawNames(painter);
}

void BranchChain::DrawSections(QPainter& painter) const {
  const QColor color = ActiveTheme().crit;
  constexpr double kNarrowestForArrow = 26;
  for (qsizetype i = 0; i + 1 < NodeCount(); ++i) {
    const double from = NodeX(i);
    const double to = NodeX(i + 1);
    const bool current = i == branch_.current;
    const bool strong = std::ranges::count(branch_.strong, static_cast<int>(i)) != 0;
    painter.setPen(QPen(color, current || strong ? 6 : 2.5, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(from, kChainY), QPointF(to, kChainY));
    if (to - from < kNarrowestForArrow) continue;
    const QPointF tip((from + to) / 2 + 4, kChainY);
    const double half = current ? 5.5 : 4;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(QPolygonF{tip, tip + QPointF(-7, -half), tip + QPointF(-7, half)});
  }
}

void BranchChain::DrawNodes(QPainter& painter) const {
  const Theme& theme = ActiveTheme();
  const double radius = qBound(1.5, (NodeX(1) - NodeX(0)) / 4, kChainNodeRadius);
  painter.setPen(QPen(theme.crit, 2));
  painter.setBrush(theme.surface);
  for (qsizetype i = 0; i < NodeCount(); ++i) {
    painter.drawEllipse(QPointF(NodeX(i), kChainY), radius, radius);
  }
}

void BranchChain::DrawNames(QPainter& painter) const {
  const qsizetype count = NodeCount();
  QList<qsizetype> order = {0, count - 1};
  if (branch_.current >= 0) order << branch_.current << branch_.current + 1;
  for (qsizetype i = 0; i < count; ++i) order << i;

  painter.setFont(ThemeFont(kKeyPoints));
  painter.setPen(ActiveTheme().ink);
  QList<QRectF> taken;
  for (const qsizetype i : order) {
    if (i < 0 || i >= count) continue;
    const double text_width = QFontMetricsF(painter.font()).horizontalAdvance(NodeName(i));
    const QRectF place(NodeX(i) - text_width / 2 - 3, kNamesTop, text_width + 6, 16);
    const bool free = std::none_of(taken.begin(), taken.end(), [&place](const QRectF& other) {
      return other.intersects(place);
    });
    if (!free) continue;
    taken << place;
    painter.drawText(place, Qt::AlignCenter, NodeName(i));
  }
}

bool BranchChain::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || branch_.nodes.empty()) {
    return PaintedPicture::event(event);
  }
  auto* help = static_cast<QHelpEvent*>(event);
  const auto nearest = static_cast<qsizetype>(qRound(StretchesTo(help->pos())));
  const qsizetype node = qBound(qsizetype{0}, nearest, NodeCount() - 1);
  QToolTip::showText(help->globalPos(), NodeName(node), this);
  return true;
}

double BranchChain::StretchesTo(const QPoint& point) const {
  return (point.x() - kSideMargin) / qMax(NodeX(1) - NodeX(0), 1.0);
}

int BranchChain::PlaceAt(const QPoint& point) const {
  const int stretch = qFloor(StretchesTo(point));
  return stretch >= 0 && stretch + 1 < NodeCount() ? stretch : -1;
}

}  // namespace kalvo

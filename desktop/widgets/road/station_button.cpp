#include "desktop/widgets/road/station_button.h"

#include <QKeyEvent>
#include <QPainter>

#include "desktop/icons.h"
#include "desktop/qt_text.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr double kDiscRadius = 25;
constexpr double kHaloRadius = 31;
constexpr double kDiscTop = 10;
constexpr int kStationIcon = 26;
constexpr double kBadgeRadius = 9;
constexpr int kCaptionTop = 70;
constexpr int kNarrowestStation = 110;

QString SpokenMark(RoadMark mark) {
  switch (mark) {
    case RoadMark::kDone:
      return "έγινε";
    case RoadMark::kNext:
      return "επόμενο βήμα";
    case RoadMark::kStale:
      return "χρειάζεται ξανά";
    case RoadMark::kLater:
      break;
  }
  return "εκκρεμεί";
}

struct DiscLook {
  QColor fill, edge, icon;
  double edge_width;
};

DiscLook DiscLookOf(RoadMark mark, const Theme& theme) {
  switch (mark) {
    case RoadMark::kDone:
      return {theme.primary, theme.primary, theme.onprimary, 1.5};
    case RoadMark::kNext:
      return {theme.surface, theme.primary, theme.primary, 3};
    case RoadMark::kStale:
      return {theme.warnbg, theme.warn, theme.warn, 1.5};
    case RoadMark::kLater:
      break;
  }
  return {theme.surface, theme.border, theme.ink2, 1.5};
}

}  // namespace

StationButton::StationButton(int number, QString icon, QWidget* parent)
    : QAbstractButton(parent), number_(number), icon_(std::move(icon)) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
}

void StationButton::SetStation(const RoadStation& station) {
  const QString caption = ToQt(station.caption);
  const QString key = station.command == nullptr ? QString() : ToQt(station.command->Hint());
  setText(caption);
  setEnabled(station.command != nullptr);
  setToolTip(key.isEmpty() ? QString() : QString("%1 (%2)").arg(caption.trimmed(), key));
  state_ = ToQt(station.state);
  mark_ = station.mark;
  const QString spoken = SpokenMark(mark_);
  QStringList words = {caption.trimmed(), spoken};
  if (state_ != spoken) words << state_;
  words.removeAll(QString());
  setAccessibleName(words.join(", "));
  updateGeometry();
  update();
}

QPointF StationButton::DiscCentre() const { return {width() / 2.0, kDiscTop + kDiscRadius}; }

QSize StationButton::sizeHint() const {
  const int line = QFontMetrics(ThemeFont(kBodyPoints, true)).lineSpacing();
  return {kNarrowestStation, kCaptionTop + 3 * line + 4};
}

bool StationButton::hitButton(const QPoint& position) const { return rect().contains(position); }

void StationButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
    return;
  }
  QAbstractButton::keyPressEvent(event);
}

void StationButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  DrawDisc(painter);
  DrawBadge(painter);
  DrawWords(painter);
}

void StationButton::DrawDisc(QPainter& painter) const {
  const Theme& theme = ActiveTheme();
  const DiscLook look = DiscLookOf(mark_, theme);
  const QPointF centre = DiscCentre();
  if (mark_ == RoadMark::kNext || underMouse()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.soft);
    painter.drawEllipse(centre, kHaloRadius, kHaloRadius);
  }
  painter.setPen(QPen(look.edge, look.edge_width));
  painter.setBrush(isDown() ? theme.soft : look.fill);
  painter.drawEllipse(centre, kDiscRadius, kDiscRadius);
  const QColor icon = isDown() ? theme.softink : look.icon;
  painter.drawPixmap(centre - QPointF(kStationIcon, kStationIcon) / 2,
                     IconPixmap(icon_, kStationIcon, devicePixelRatioF(), icon));
  if (!hasFocus()) return;
  painter.setPen(QPen(theme.primary, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(centre, kHaloRadius + 1, kHaloRadius + 1);
}

// At the lower right of the disc: a tick, an exclamation mark, or the number of the step.
void StationButton::DrawBadge(QPainter& painter) const {
  const Theme& theme = ActiveTheme();
  const QPointF centre = DiscCentre() + QPointF(22, 19);
  const bool later = mark_ == RoadMark::kLater;
  QColor ground = later ? theme.header : theme.primary;
  if (mark_ == RoadMark::kDone) ground = theme.ok;
  if (mark_ == RoadMark::kStale) ground = theme.warn;
  painter.setPen(QPen(theme.surface, 2));
  painter.setBrush(ground);
  painter.drawEllipse(centre, kBadgeRadius + 1, kBadgeRadius + 1);
  if (mark_ == RoadMark::kDone) {
    constexpr int kTick = 12;
    painter.drawPixmap(centre - QPointF(kTick, kTick) / 2,
                       IconPixmap("check-bold", kTick, devicePixelRatioF(), theme.surface));
    return;
  }
  painter.setPen(later ? theme.ink : theme.onprimary);
  if (mark_ == RoadMark::kStale) painter.setPen(theme.surface);
  painter.setFont(ThemeFont(kKeyPoints, true));
  const QRectF square(centre - QPointF(kBadgeRadius, kBadgeRadius),
                      QSizeF(2 * kBadgeRadius, 2 * kBadgeRadius));
  painter.drawText(square, Qt::AlignCenter,
                   mark_ == RoadMark::kStale ? QString("!") : QString::number(number_));
}

void StationButton::DrawWords(QPainter& painter) const {
  const Theme& theme = ActiveTheme();
  constexpr auto kFlags =
      static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) | static_cast<int>(Qt::TextWordWrap);
  QRectF place(2, kCaptionTop, width() - 4, height() - kCaptionTop);
  QRectF used;
  painter.setFont(ThemeFont(kBodyPoints, true));
  painter.setPen(isEnabled() ? theme.ink : theme.ink3);
  painter.drawText(place, kFlags, text().trimmed(), &used);
  place.setTop(used.bottom() + 2);
  const bool speaks_up = mark_ == RoadMark::kNext || mark_ == RoadMark::kStale;
  painter.setFont(ThemeFont(kHintPoints, mark_ == RoadMark::kNext));
  painter.setPen(theme.ink3);
  if (speaks_up) painter.setPen(mark_ == RoadMark::kNext ? theme.primary : theme.warn);
  painter.drawText(place, kFlags, state_);
}

}  // namespace kalvo

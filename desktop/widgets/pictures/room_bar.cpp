#include "desktop/widgets/pictures/room_bar.h"

#include <QPainter>
#include <algorithm>

#include "desktop/qt_text.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

// What comes is seen however large the medium is.
constexpr double kLeastPart = 3;

}  // namespace

RoomBar::RoomBar(QWidget* parent) : PaintedPicture(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setAccessibleName(QStringLiteral("Χώρος του Drive"));
}

void RoomBar::SetContent(const RoomContent& room) {
  room_ = room;
  setAccessibleDescription(ToQt(room_.told));
  setToolTip(ToQt(room_.told));
  update();
}

void RoomBar::paintEvent(QPaintEvent*) {
  const Theme& theme = ActiveTheme();
  QPainter painter(this);
  const QRectF bar = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  const double used = bar.width() * std::clamp(room_.used, 0.0, 1.0);
  double comes = bar.width() * room_.comes;
  if (room_.comes > 0) comes = std::max(comes, kLeastPart);
  const double from = std::min(used, bar.width() - std::min(comes, bar.width()));
  painter.fillRect(bar, theme.surface);
  painter.fillRect(QRectF(bar.left(), bar.top(), used, bar.height()),
                   QBrush(theme.border, Qt::BDiagPattern));
  const double begins = room_.too_much ? from : used;
  painter.fillRect(
      QRectF(bar.left() + begins, bar.top(), std::min(comes, bar.width() - begins), bar.height()),
      room_.too_much ? theme.err : theme.primary);
  painter.setPen(QPen(room_.too_much ? theme.err : theme.border, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(bar);
}

}  // namespace kalvo

#include "desktop/widgets/boxes/roomy_card.h"

#include <QEvent>

namespace kalvo {

void RoomyCard::Follow() {
  const bool room = window()->width() >= window_width_ && window()->height() >= window_height_;
  if (isHidden() == room) setVisible(room);
}

bool RoomyCard::event(QEvent* event) {
  // Polished once, before it is shown at first; a card that hides must go on watching its window.
  if (event->type() == QEvent::Polish) {
    window()->installEventFilter(this);
    Follow();
  }
  return QFrame::event(event);
}

bool RoomyCard::eventFilter(QObject* watched, QEvent* event) {
  if (watched == window() && (event->type() == QEvent::Resize || event->type() == QEvent::Show)) {
    Follow();
  }
  return QFrame::eventFilter(watched, event);
}

}  // namespace kalvo

#include "desktop/widgets/boxes/following_card.h"

#include <QEvent>

namespace kalvo {

bool FollowingCard::event(QEvent* event) {
  // Polished once, before it is shown at first; a card that hides must go on watching.
  if (event->type() == QEvent::Polish) {
    if (auto* shown = findChild<QWidget*>(follows_); shown != nullptr) {
      shown->installEventFilter(this);
      setVisible(!shown->isHidden());
    }
  }
  return QFrame::event(event);
}

bool FollowingCard::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShowToParent) show();
  if (event->type() == QEvent::HideToParent) hide();
  return QFrame::eventFilter(watched, event);
}

}  // namespace kalvo

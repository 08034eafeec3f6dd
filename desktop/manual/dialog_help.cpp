#include "desktop/manual/dialog_help.h"

#include <QApplication>
#include <QDialog>
#include <utility>

#include "desktop/key_event.h"
#include "desktop/widgets/boxes/message_box.h"

namespace kalvo {

DialogHelp::DialogHelp(std::function<void(QWidget&)> help) : help_(std::move(help)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool DialogHelp::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  auto* dialog = widget == nullptr ? nullptr : qobject_cast<QDialog*>(widget->window());
  if (dialog == nullptr || qobject_cast<MessageBox*>(dialog) != nullptr) return false;
  if (!AsksForHelp(KeyOf(static_cast<const QKeyEvent&>(*event)))) return false;
  help_(*dialog);
  return true;
}

}  // namespace kalvo

#pragma once

#include <QApplication>
#include <QStringList>
#include <QTimer>

#include "desktop/widgets/boxes/message_box.h"

namespace kalvo {

/// A user who closes every box as soon as it shows, and remembers what it said.
class BoxesAnswered {
 public:
  BoxesAnswered() {
    QObject::connect(&look_, &QTimer::timeout, &look_, [this] {
      auto* box = dynamic_cast<MessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      texts << box->accessibleDescription();
      box->reject();
    });
    look_.start(10);
  }

  QStringList texts;

 private:
  QTimer look_;
};

}  // namespace kalvo

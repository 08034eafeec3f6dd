#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include "study/clock.h"

namespace kalvo {

/// Waits while the windows go on being painted; what the user does meanwhile waits, too.
class QtClock : public Clock {
 public:
  void Pause(double seconds) override {
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(seconds * 1000), &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
  }
};

}  // namespace kalvo

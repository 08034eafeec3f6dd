#pragma once

#include <QKeyEvent>

#include "form/key.h"

namespace kalvo {

/// The key of an event as forms know it. With Ctrl or Alt a letter of the Greek layout becomes the
/// Latin one on the same key. A key that forms do not know gives character 0.
Key KeyOf(const QKeyEvent& event);

}  // namespace kalvo

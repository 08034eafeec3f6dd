#pragma once

#include <QString>

#include "form/control.h"

class QWidget;

namespace kalvo {

/// A tone's name in the style sheet.
QString ToneName(Tone tone);

/// Shows or hides, enables or greys the widget as its part is.
void PaintPresence(QWidget& widget, const Control& part);

}  // namespace kalvo

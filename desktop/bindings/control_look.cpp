#include "desktop/bindings/control_look.h"

#include <QWidget>

namespace kalvo {

QString ToneName(Tone tone) {
  switch (tone) {
    case Tone::kQuiet:
      return QStringLiteral("quiet");
    case Tone::kAlarm:
      return QStringLiteral("alarm");
    case Tone::kCalculated:
      return QStringLiteral("calculated");
    case Tone::kImposed:
      return QStringLiteral("imposed");
    case Tone::kWaiting:
      return QStringLiteral("waiting");
    case Tone::kCritical:
      return QStringLiteral("crit");
    case Tone::kGood:
      return QStringLiteral("good");
    case Tone::kStrong:
    case Tone::kPlain:
      break;
  }
  return {};
}

void PaintPresence(QWidget& widget, const Control& part) {
  if (widget.isVisibleTo(widget.parentWidget()) != part.visible) widget.setVisible(part.visible);
  if (widget.isEnabledTo(widget.parentWidget()) != part.enabled) widget.setEnabled(part.enabled);
}

}  // namespace kalvo

#include "desktop/bindings/label_binding.h"

#include "desktop/bindings/control_look.h"
#include "desktop/qt_text.h"
#include "desktop/style_property.h"

namespace kalvo {

void LabelBinding::Paint() {
  PaintPresence(widget_, label_);
  const QString text = ToQt(label_.text);
  if (widget_.text() != text) {
    widget_.setText(text);
    widget_.setAccessibleName(text.trimmed());
  }
  const QString tone = text.isEmpty() ? QString() : ToneName(label_.tone);  // has a ground
  SetStyleProperty(widget_, "tone", tone.isEmpty() ? designed_tone_ : tone);
}

}  // namespace kalvo

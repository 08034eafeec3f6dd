#include "desktop/style_property.h"

#include <QStyle>
#include <QVariant>
#include <QWidget>

namespace kalvo {

void StyleAnew(QWidget& widget) {
  widget.style()->unpolish(&widget);
  widget.style()->polish(&widget);
}

void SetStyleProperty(QWidget& widget, const char* name, const QVariant& value) {
  if (widget.property(name) == value || (!widget.property(name).isValid() && value == QString())) {
    return;
  }
  widget.setProperty(name, value);
  StyleAnew(widget);
}

}  // namespace kalvo

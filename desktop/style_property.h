#pragma once

class QVariant;
class QWidget;

namespace kalvo {

/// Lets the style sheet look at the widget again.
void StyleAnew(QWidget& widget);

/// Sets a property that the style sheet looks at; the widget is styled anew when it has changed.
void SetStyleProperty(QWidget& widget, const char* name, const QVariant& value);

}  // namespace kalvo

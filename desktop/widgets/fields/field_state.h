#pragma once

class QLineEdit;
class QWidget;

namespace kalvo {

/// Sets the property `state` that the style sheet looks at ("refused", "calculated", "imposed" or
/// "") and draws the widget anew.
void SetFieldState(QWidget& field, const char* state);

/// Marks the field as refused until its text is edited next, and gives it the focus with its text
/// selected.
void RefuseField(QLineEdit& field);

}  // namespace kalvo

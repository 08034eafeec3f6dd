#pragma once

#include <QLabel>

#include "desktop/bindings/binding.h"
#include "form/control.h"

namespace kalvo {

/// A text that the form changes; without a tone of the form's it keeps its design's.
class LabelBinding : public Binding {
 public:
  LabelBinding(Label& label, QLabel& widget)
      : label_(label), widget_(widget), designed_tone_(widget.property("tone").toString()) {}

  void Paint() override;
  [[nodiscard]] QWidget* widget() const override { return &widget_; }

 private:
  Label& label_;
  QLabel& widget_;
  QString designed_tone_;
};

}  // namespace kalvo

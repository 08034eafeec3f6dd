#pragma once

#include <QAbstractButton>

#include "desktop/bindings/binding.h"
#include "form/choice.h"

namespace kalvo {

/// What is switched on and off, and its check box or option.
class ToggleBinding : public Binding {
 public:
  ToggleBinding(Toggle& toggle, QAbstractButton& button, const Act& act);

  void Paint() override;
  [[nodiscard]] QWidget* widget() const override { return &button_; }

 private:
  Toggle& toggle_;
  QAbstractButton& button_;
  bool painting_ = false;
};

}  // namespace kalvo

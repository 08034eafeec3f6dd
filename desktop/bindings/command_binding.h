#pragma once

#include <QAbstractButton>

#include "desktop/bindings/binding.h"
#include "form/form.h"

namespace kalvo {

/// A command and its button.
class CommandBinding : public Binding {
 public:
  CommandBinding(Form& form, Command& command, QAbstractButton& button, const Act& act);

  void Paint() override;
  [[nodiscard]] QWidget* widget() const override { return &button_; }

 private:
  Command& command_;
  QAbstractButton& button_;
};

}  // namespace kalvo

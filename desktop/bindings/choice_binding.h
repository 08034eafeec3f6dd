#pragma once

#include <QComboBox>
#include <string>
#include <vector>

#include "desktop/bindings/binding.h"
#include "form/choice.h"

namespace kalvo {

/// A choice and the box that opens its list.
class ChoiceBinding : public Binding {
 public:
  ChoiceBinding(Choice& choice, QComboBox& box, const Act& act);

  void Paint() override;
  [[nodiscard]] QWidget* widget() const override { return &box_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Choice& choice_;
  QComboBox& box_;
  std::vector<std::string> shown_;
};

}  // namespace kalvo

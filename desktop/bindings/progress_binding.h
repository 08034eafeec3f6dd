#pragma once

#include <QProgressBar>

#include "desktop/bindings/binding.h"
#include "form/progress.h"

namespace kalvo {

/// A progress and its bar.
class ProgressBinding : public Binding {
 public:
  ProgressBinding(Progress& progress, QProgressBar& bar) : progress_(progress), bar_(bar) {}

  void Paint() override;
  [[nodiscard]] QWidget* widget() const override { return &bar_; }

 private:
  Progress& progress_;
  QProgressBar& bar_;
};

}  // namespace kalvo

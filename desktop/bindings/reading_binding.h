#pragma once

#include "desktop/bindings/binding.h"
#include "desktop/manual/manual_browser.h"
#include "form/reading.h"

namespace kalvo {

/// A text that is read and the browser that shows it.
class ReadingBinding : public Binding {
 public:
  ReadingBinding(Reading& reading, ManualBrowser& browser, const Act& act);

  void Paint() override;
  [[nodiscard]] QWidget* widget() const override { return &browser_; }

 private:
  Reading& reading_;
  ManualBrowser& browser_;
  std::string shown_;
  int turns_ = 0;
  int markings_ = 0;
};

}  // namespace kalvo

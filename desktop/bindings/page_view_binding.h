#pragma once

#include "desktop/bindings/binding.h"
#include "desktop/widgets/preview/page_sheet.h"
#include "form/page_view.h"

namespace kalvo {

/// A page on show and the widget that scrolls it.
class PageViewBinding : public Binding {
 public:
  PageViewBinding(PageView& view, PageSheet& sheet, const Act& act);

  void Paint() override;
  [[nodiscard]] QWidget* widget() const override { return &sheet_; }

 private:
  PageView& view_;
  PageSheet& sheet_;
  int revision_ = 0;
  int scrolls_ = 0;
};

}  // namespace kalvo

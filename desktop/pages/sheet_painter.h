#pragma once

#include <QPainter>

#include "desktop/pages/page_fonts.h"
#include "desktop/pages/page_layout.h"
#include "study/separators.h"

namespace kalvo {

/// Paints the pages of a workbook, which must outlive it: fills, texts, borders, header and footer.
class SheetPainter {
 public:
  SheetPainter(const Workbook& workbook, Separators separators)
      : workbook_(workbook), separators_(separators), layout_(LayOutPages(workbook)) {}

  [[nodiscard]] const PageLayout& layout() const { return layout_; }
  [[nodiscard]] int page_count() const { return static_cast<int>(layout_.pages.size()); }

  /// A page that counts from 0, without the paper's own colour. The painter's unit is the twip and
  /// its origin the corner of the paper.
  void Paint(QPainter& painter, int page);

 private:
  const Workbook& workbook_;
  Separators separators_;
  PageLayout layout_;
  PageFonts fonts_;
};

}  // namespace kalvo

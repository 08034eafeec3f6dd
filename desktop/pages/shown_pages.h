#pragma once

#include "desktop/pages/sheet_painter.h"
#include "form/previewed_pages.h"

namespace kalvo {

/// The pages of a workbook, which must outlive them, as they are previewed, printed and kept.
class ShownPages : public PreviewedPages {
 public:
  ShownPages(const Workbook& workbook, Separators separators) : painter_(workbook, separators) {}

  [[nodiscard]] int count() const override { return painter_.page_count(); }
  [[nodiscard]] PageSize size() const override;
  [[nodiscard]] std::string paper() const override { return painter_.layout().paper.text; }
  [[nodiscard]] std::string sheet() const override;
  /// Vectors, with the fonts in it and texts that can be searched.
  Result<std::string> MakePdf() override;

  /// A page that counts from 0 as a sheet of white paper over all of `place`.
  void Paint(QPainter& painter, const QRectF& place, int page);

 private:
  SheetPainter painter_;
};

/// How large a page is on a screen at so many percent of its true size.
QSize DotsOf(const PageSize& size, double percent, int dots_of_inch);

}  // namespace kalvo

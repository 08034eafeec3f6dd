#pragma once

#include <QPainter>

#include "desktop/pages/page_fonts.h"
#include "desktop/pages/page_layout.h"

namespace kalvo {

/// Paints the header and the footer of a page that counts from 0; the unit is the twip, the origin
/// the corner of the paper. `font` is that of letters without a code.
void PaintPageTexts(QPainter& painter, const PageLayout& layout, int page, const CellFont& font,
                    PageFonts& fonts);

}  // namespace kalvo

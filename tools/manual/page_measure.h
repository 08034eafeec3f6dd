#pragma once

#include <QRectF>

namespace kalvo {

/// A4 in dots of 1/96 inch, its margins, and what is left for the text.
inline constexpr double kDotsOfInch = 96;
inline constexpr double kDotsOfMm = kDotsOfInch / 25.4;
inline constexpr double kPageWidth = 210 * kDotsOfMm;
inline constexpr double kPageHeight = 297 * kDotsOfMm;
inline constexpr double kSideMargin = 22 * kDotsOfMm;
inline constexpr double kTopMargin = 25 * kDotsOfMm;
inline constexpr double kBottomMargin = 23 * kDotsOfMm;
inline constexpr double kTextWidth = kPageWidth - 2 * kSideMargin;
inline constexpr double kTextHeight = kPageHeight - kTopMargin - kBottomMargin;

/// A place to which outline and links lead: a page from 0 and a height on it from the top of the
/// sheet, in dots.
struct PagePlace {
  int page = 0;
  double top = 0;
};

}  // namespace kalvo

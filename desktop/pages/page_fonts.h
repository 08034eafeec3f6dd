#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <map>

#include "platform/xls/cell_format.h"

namespace kalvo {

inline QColor ColourOf(PaperColour colour) { return QColor::fromRgb(colour); }

/// A font on paper; its height counts in twips, so its letters are as wide on every device.
struct PageFont {
  QFont font;
  QFontMetricsF metrics;
};

/// The fonts of a workbook's cells. One that the machine lacks is the windows' own.
class PageFonts {
 public:
  const PageFont& Of(const CellFont& font);

 private:
  struct Less {
    bool operator()(const CellFont& a, const CellFont& b) const;
  };
  std::map<CellFont, PageFont, Less> fonts_;
};

/// The same font as a part of its height.
PageFont Smaller(const PageFont& font, double part);

}  // namespace kalvo

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kalvo {

/// 0xRRGGBB.
using PaperColour = std::uint32_t;

struct CellFont {
  std::string name = "Arial";
  double height_points = 10;
  bool bold = false;
  bool italic = false;
  bool underlined = false;
  bool struck_out = false;
  PaperColour colour = 0;

  bool operator==(const CellFont&) const = default;
};

/// In the numbering of the file ([MS-XLS], BorderStyle).
enum class LineStyle {
  kNone,
  kThin,
  kMedium,
  kDashed,
  kDotted,
  kThick,
  kDouble,
  kHair,
  kMediumDashed,
  kDashDot,
  kMediumDashDot,
  kDashDotDot,
  kMediumDashDotDot,
  kSlantedDashDot
};

struct BorderLine {
  LineStyle style = LineStyle::kNone;
  PaperColour colour = 0;

  bool operator==(const BorderLine&) const = default;
};

/// In the numbering of the file ([MS-XLS], HorizAlign). General: numbers to the right,
/// texts to the left, the rest in the middle.
enum class HorizontalAlign {
  kGeneral,
  kLeft,
  kCentre,
  kRight,
  kFill,
  kJustify,
  kCentreAcross,
  kDistributed
};

/// In the numbering of the file ([MS-XLS], VertAlign).
enum class VerticalAlign { kTop, kCentre, kBottom, kJustify, kDistributed };

/// How a cell looks.
struct CellFormat {
  CellFont font;
  std::string number_format = "General";
  HorizontalAlign horizontal = HorizontalAlign::kGeneral;
  VerticalAlign vertical = VerticalAlign::kBottom;
  bool wrap = false;
  bool shrink = false;
  int indent = 0;    ///< steps of about three characters
  int rotation = 0;  ///< degrees, counter-clockwise; 255: letters one below the other
  BorderLine left;
  BorderLine right;
  BorderLine top;
  BorderLine bottom;
  /// 0 no fill, 1 all of `fill_colour`, 2 to 18 a pattern of it on `fill_background`
  /// ([MS-XLS], FillPattern).
  int fill_pattern = 0;
  PaperColour fill_colour = 0;
  PaperColour fill_background = 0xFFFFFF;
};

}  // namespace kalvo

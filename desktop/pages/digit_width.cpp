#include "desktop/pages/digit_width.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "study/letter_case.h"

namespace kalvo {
namespace {

constexpr double kDotsOfPoint = 96.0 / 72;

struct DigitsOf {
  std::string_view font;
  double width;  // of the font's height
};

constexpr std::array kDigits = {
    DigitsOf{"Arial", 0.556},           DigitsOf{"Calibri", 0.507},
    DigitsOf{"Courier New", 0.600},     DigitsOf{"DejaVu Sans", 0.636},
    DigitsOf{"Liberation Sans", 0.556}, DigitsOf{"Noto Sans", 0.572},
    DigitsOf{"Tahoma", 0.546},          DigitsOf{"Times New Roman", 0.5},
    DigitsOf{"Verdana", 0.636}};

}  // namespace

int DigitDots(const CellFont& font) {
  const auto* found = std::ranges::find_if(kDigits, [&font](const DigitsOf& digits) {
    return EqualIgnoringCase(digits.font, font.name);
  });
  const DigitsOf& digits = found == kDigits.end() ? kDigits.front() : *found;
  const double dots = std::round(digits.width * font.height_points * kDotsOfPoint);
  return std::max(static_cast<int>(dots), 1);
}

double ColumnTwips(double characters, int digit_dots) {
  if (!(characters > 0)) return 0;
  const double parts = 256 * characters + std::floor(128.0 / digit_dots);
  return std::floor(parts / 256 * digit_dots) * kTwipsOfDot;
}

}  // namespace kalvo

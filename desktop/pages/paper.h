#pragma once

#include <string>

#include "platform/xls/workbook.h"

namespace kalvo {

/// The parts of an inch that pages are laid out and painted in: a twip is 1/20 point.
inline constexpr double kTwipsOfInch = 1440;
inline constexpr double kTwipsOfPoint = 20;

/// A sheet of paper as it is printed on; lengths are twips.
struct Paper {
  double width = 0;
  double height = 0;
  std::string text;  ///< "A4 όρθιο"
};

/// The paper of a sheet. One of a size that is not known here is A4.
Paper PaperOf(const PageSetup& setup);

}  // namespace kalvo

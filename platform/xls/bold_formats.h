#pragma once

#include <cstdint>
#include <map>

#include "platform/xls/workbook.h"

namespace kalvo {

/// Bold twins of the formats of one workbook, made when a cell first needs one.
class BoldFormats {
 public:
  /// Makes the cell bold, if it is there and its format is among the workbook's.
  void Apply(Workbook& workbook, Sheet& sheet, int row, int column);

 private:
  /// The twin of a format; the format itself where none can be made.
  std::uint16_t TwinOf(Workbook& workbook, std::uint16_t format);

  std::map<std::uint16_t, std::uint16_t> twins_;
};

}  // namespace kalvo

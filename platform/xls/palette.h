#pragma once

#include <array>

#include "platform/xls/biff_records.h"
#include "platform/xls/cell_format.h"

namespace kalvo {

/// The colours that formats name by number ([MS-XLS], Icv).
class Palette {
 public:
  /// The one of a workbook without a PALETTE record.
  Palette();
  /// Takes the colours of a PALETTE record ([MS-XLS], Palette) in place of its own.
  void Read(const Record& record);

  /// `automatic` for the numbers that name no colour.
  [[nodiscard]] PaperColour At(unsigned number, PaperColour automatic) const;

 private:
  static constexpr std::size_t kColours = 56;
  std::array<PaperColour, kColours> colours_;
};

}  // namespace kalvo

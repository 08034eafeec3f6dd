#pragma once

#include <array>
#include <string>
#include <vector>

#include "study/section_row.h"
#include "study/system_kind.h"

namespace kalvo {

constexpr int kSheetColumns = 16;

struct SheetRow {
  std::array<std::string, kSheetColumns> texts;
  int origin = 0;
  FixedText<7> origin_name;
  bool operator==(const SheetRow&) const = default;
};

struct SheetImage {
  SystemKind kind = SystemKind::kNone;
  int base_rows = 0;
  std::vector<SheetRow> rows;
};

}  // namespace kalvo

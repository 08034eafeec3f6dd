#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "study/result.h"
#include "study/section_row.h"
#include "study/system_kind.h"

namespace kalvo {

/// Columns of the sheet of sections; the second is "/".
constexpr int kSheetColumns = 16;

/// A row of the sheet: its texts, and the row of the study it came from.
struct SheetRow {
  std::array<std::string, kSheetColumns> texts;
  int origin = 0;            ///< number in `DATARES.TMP`; 0: the row is new
  FixedText<7> origin_name;  ///< the name of that row then
  bool operator==(const SheetRow&) const = default;
};

/// A sheet as a file keeps it.
struct SheetImage {
  SystemKind kind = SystemKind::kNone;
  int base_rows = 0;  ///< rows of `DATARES.TMP` when entry began
  std::vector<SheetRow> rows;
};

/// The bytes of a sheet's file. `decimal`: the sign of decimals in its numbers.
std::string EncodeSheet(const SheetImage& image, char decimal);

/// The sheet in a file's bytes, numbers with the sign `decimal`, whichever they were written with.
/// Error: the bytes are no such file, or not all of one; `file` is named.
Result<SheetImage> DecodeSheet(std::string_view bytes, const std::filesystem::path& file,
                               char decimal);

}  // namespace kalvo

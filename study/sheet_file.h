#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "study/fixed_text.h"
#include "study/result.h"
#include "study/system_kind.h"

namespace kalvo {

/// Columns of the section sheet: the two halves of the name with "/" between them, and the thirteen
/// numbers of a section.
constexpr int kSheetColumns = 16;
constexpr std::size_t kFirstNumberColumn = 3;  ///< index; from here on cells hold numbers

/// A row of the sheet as the user sees it.
struct SheetRow {
  std::array<std::string, kSheetColumns> texts;  ///< UTF-8, numbers in the user's notation
  int origin = 0;              ///< number of the row of `DATARES.TMP` it came from, 0: new
  FixedText<7> origin_name{};  ///< `Name` of that row then

  bool operator==(const SheetRow&) const = default;
};

struct SheetImage {
  SystemKind kind = SystemKind::kNone;
  int base_rows = 0;  ///< rows of `DATARES.TMP` when the sheet was kept
  std::vector<SheetRow> rows;

  bool operator==(const SheetImage&) const = default;
};

/// Sections of the sheet: its rows up to the last that holds more than the names it began with.
int CountSections(const SheetImage& sheet);

/// The bytes of a sheet's file. `decimal` is the decimal sign in the texts.
std::string EncodeSheet(const SheetImage& sheet, char decimal);

/// The sheet in those bytes, numbers with `decimal` as their decimal sign whatever they were
/// written with. Error, which names `file`: the bytes are no whole sheet, or one of more than 32767
/// rows.
Result<SheetImage> DecodeSheet(std::string_view bytes, const std::filesystem::path& file,
                               char decimal);

}  // namespace kalvo

#include "entry/sections/row_checks.h"

#include <algorithm>

#include "entry/sections/sheet_columns.h"
#include "study/message_codes.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

bool IsNumber(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::optional<RowFault> SeparatorFault(const SheetRow& texts, Separators separators) {
  for (int column = sheet_column::kLength; column < kSheetColumns; ++column) {
    const std::string& text = texts.texts.at(static_cast<std::size_t>(column));
    const bool single = std::holds_alternative<float SectionRow::*>(FieldOfColumn(column));
    if (single && CountDecimalSeparators(text, separators) > 1) {
      return RowFault{message::kTooManySeparators, column};
    }
  }
  return std::nullopt;
}

bool IsNameWrong(const SheetRow& texts, int row, Separators separators) {
  const std::string_view left = Trim(texts.texts[sheet_column::kLeft]);
  const std::string_view right = Trim(texts.texts[sheet_column::kRight]);
  if (row == 0 || right == kSource) return false;
  if (right.empty() || (IsNumber(right) && ParseNumber(right, separators) == 0)) return true;
  if (IsNumber(left) && IsNumber(right)) {
    return ParseNumber(left, separators) == ParseNumber(right, separators);
  }
  return left == right;
}

bool IsLengthWrong(const SheetRow& texts, Separators separators) {
  return ParseNumber(texts.texts[sheet_column::kLength], separators) == 0;
}

std::optional<RowFault> FirstFault(const SheetRow& texts, int row, Separators separators) {
  if (const auto fault = SeparatorFault(texts, separators)) return fault;
  if (IsNameWrong(texts, row, separators)) {
    return RowFault{message::kWrongFeeder, sheet_column::kRight};
  }
  if (IsLengthWrong(texts, separators)) return RowFault{message::kNoLength, sheet_column::kLength};
  return std::nullopt;
}

}  // namespace kalvo

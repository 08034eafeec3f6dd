#include "platform/xls/cell_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/xls/number_format.h"

namespace kalvo {

namespace {

// Source: [MS-XLS], BErr.
constexpr auto kErrorTexts = std::to_array<std::pair<std::uint8_t, std::string_view>>({
    {0x00, "#NULL!"},
    {0x07, "#DIV/0!"},
    {0x0F, "#VALUE!"},
    {0x17, "#REF!"},
    {0x1D, "#NAME?"},
    {0x24, "#NUM!"},
    {0x2A, "#N/A"},
});

std::string_view ErrorText(std::uint8_t code) {
  const auto found =
      std::ranges::find(kErrorTexts, code, [](const auto& entry) { return entry.first; });
  return found == kErrorTexts.end() ? "#N/A" : found->second;
}

}  // namespace

std::string CellText(const Workbook& workbook, const Cell& cell, Separators separators) {
  const std::string& format = workbook.FormatOf(cell.format).number_format;
  if (const auto* number = std::get_if<double>(&cell.value)) {
    return NumberByFormat(*number, format, separators);
  }
  if (std::holds_alternative<TextRef>(cell.value)) {
    return TextByFormat(workbook.TextOf(cell), format);
  }
  if (const auto* truth = std::get_if<bool>(&cell.value)) return *truth ? "ΑΛΗΘΗΣ" : "ΨΕΥΔΗΣ";
  if (const auto* error = std::get_if<CellError>(&cell.value)) {
    return std::string(ErrorText(error->code));
  }
  return {};
}

HorizontalAlign CellAlign(const Workbook& workbook, const Cell& cell) {
  const HorizontalAlign align = workbook.FormatOf(cell.format).horizontal;
  if (align != HorizontalAlign::kGeneral) return align;
  if (std::holds_alternative<double>(cell.value)) return HorizontalAlign::kRight;
  const bool is_word =
      std::holds_alternative<bool>(cell.value) || std::holds_alternative<CellError>(cell.value);
  return is_word ? HorizontalAlign::kCentre : HorizontalAlign::kLeft;
}

}  // namespace kalvo

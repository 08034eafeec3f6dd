#include "form/pasted_numbers.h"

#include <algorithm>
#include <utility>

#include "form/edit.h"
#include "study/fixed_text.h"

namespace kalvo {
namespace {

constexpr std::size_t kLongestPasted = 15;

bool IsSign(char character) { return character == '.' || character == ','; }
bool IsFigure(char character) { return character >= '0' && character <= '9'; }

std::vector<std::string> CellsOf(std::string_view line) {
  std::vector<std::string> cells;
  for (std::size_t tab = 0; tab != std::string_view::npos;) {
    tab = line.find('\t');
    cells.emplace_back(Trim(line.substr(0, tab)));
    line.remove_prefix(std::min(line.size(), tab == std::string_view::npos ? tab : tab + 1));
  }
  return cells;
}

}  // namespace

std::vector<PastedLine> PastedLines(std::string_view text) {
  std::vector<PastedLine> lines;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find_first_of("\r\n");
    PastedLine line{number, CellsOf(text.substr(0, end))};
    if (std::ranges::any_of(line.cells, [](const auto& cell) { return !cell.empty(); })) {
      lines.push_back(std::move(line));
    }
    if (end == std::string_view::npos) break;
    text.remove_prefix(text.substr(end).starts_with("\r\n") ? end + 2 : end + 1);
  }
  return lines;
}

bool IsDoubtful(const std::vector<std::string>& numbers, Separators separators) {
  bool any = false;
  for (const std::string& number : numbers) {
    const auto signs = std::ranges::count_if(number, IsSign);
    if (signs == 0) continue;
    const std::size_t at = number.find(separators.thousands);
    if (signs != 1 || at == std::string::npos || number.size() != at + 4) return false;
    any = true;
  }
  return any;
}

std::optional<double> PastedNumber(std::string_view cell, bool thousands, Separators separators) {
  std::string number(cell);
  if (thousands) std::erase(number, separators.thousands);
  number = NumberPiece(number, true, separators);
  const auto decimals = std::ranges::count(number, separators.decimal);
  const bool is_number = !number.empty() && number.size() <= kLongestPasted && decimals <= 1 &&
                         std::ranges::all_of(number, [separators](char character) {
                           return IsFigure(character) || character == separators.decimal;
                         });
  if (!is_number) return std::nullopt;
  return ParseNumber(number, separators);
}

}  // namespace kalvo

#include "entry/winter/winter_paste.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "entry/winter/winter_grid.h"
#include "form/pasted_numbers.h"
#include "study/fixed_text.h"
#include "study/rounding.h"

namespace kalvo {
namespace {

constexpr int kWinterColumnsEnd = 7;
constexpr std::size_t kToldPlaces = 10;

// Each text of the block with the cell that it falls on.
std::vector<CellText> PlacedTexts(const CellBlock& cells, const GridBlock& target) {
  std::vector<CellText> placed;
  if (cells.size() == 1 && cells.front().size() == 1) {
    for (int row = target.top; row <= target.bottom; ++row) {
      for (int column = target.left; column <= target.right; ++column) {
        placed.push_back({row, column, cells.front().front()});
      }
    }
    return placed;
  }
  for (std::size_t i = 0; i < cells.size(); ++i) {
    for (std::size_t j = 0; j < cells[i].size(); ++j) {
      placed.push_back(
          {target.top + static_cast<int>(i), target.left + static_cast<int>(j), cells[i][j]});
    }
  }
  return placed;
}

std::optional<float> FittingValue(std::string_view text, Separators separators, bool thousands) {
  if (text.empty()) return 0.0F;
  const auto number = PastedNumber(text, thousands, separators);
  if (!number || *number > std::numeric_limits<float>::max()) return std::nullopt;
  return ToSingle(*number);
}

}  // namespace

std::vector<std::string> PastedOnWinter(const CellBlock& cells, const GridBlock& target, int rows) {
  std::vector<std::string> texts;
  for (const CellText& cell : PlacedTexts(cells, target)) {
    if (cell.row < rows && WinterValueOf(cell.column)) texts.emplace_back(Trim(cell.text));
  }
  return texts;
}

WinterPaste PlanWinterPaste(const CellBlock& cells, const GridBlock& target, int rows,
                            Separators separators, bool thousands) {
  WinterPaste paste;
  for (const CellText& cell : PlacedTexts(cells, target)) {
    const std::string_view text = Trim(cell.text);
    const bool outside = cell.row >= rows || cell.column >= kWinterColumnsEnd;
    if (!outside && !WinterValueOf(cell.column)) continue;
    const auto number = FittingValue(text, separators, thousands);
    if (!outside && number) {
      paste.cells.push_back({{cell.row, cell.column}, *number});
    } else if (!text.empty()) {
      paste.refused.push_back(cell);
    }
  }
  return paste;
}

Box WinterPasteBox(const std::vector<CellText>& refused) {
  const std::size_t count = refused.size();
  Box box{"Επικόλληση",
          {count == 1 ? "1 κείμενο δεν χωρά στο κελί του"
                      : std::to_string(count) + " κείμενα δεν χωρούν στα κελιά τους"},
          box_style::kInformation};
  for (std::size_t i = 0; i < std::min(count, kToldPlaces); ++i) {
    box.lines.push_back("Σειρά " + std::to_string(refused[i].row + 1) + ", Στήλη " +
                        std::to_string(refused[i].column + 1) + " : " + refused[i].text);
  }
  if (count > kToldPlaces) {
    box.lines.push_back("... και άλλα " + std::to_string(count - kToldPlaces));
  }
  return box;
}

}  // namespace kalvo

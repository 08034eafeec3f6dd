#include "entry/winter/winter_grid.h"

#include <array>

#include "study/numeric_text.h"

namespace kalvo {
namespace {

namespace winter_column {
constexpr int kSection = 0;
constexpr int kName = 1;
constexpr int kSummerFlow = 2;
constexpr int kSummerDrop = 3;
constexpr int kLength = 4;
constexpr int kFlow = 5;
constexpr int kDrop = 6;
}  // namespace winter_column

std::vector<GridColumn> WinterColumns() {
  std::vector<GridColumn> columns = {{"α/α ΤΜΗΜ.", 5},
                                     {"ΟΝΟΜΑΣΙΑ ΤΜΗΜΑΤΟΣ", 9, false, true},
                                     {"ΠΑΡΟΧΗ ΘΕΡΟΥΣ [Lit/h]", 10},
                                     {"ΠΤΩΣΗ ΠΙΕΣΗΣ [mm w.g.]", 10, true, true},
                                     {"ΜΗΚΟΣ ΤΜΗΜ. [m]", 8, true, true},
                                     {"ΠΑΡΟΧΗ ΧΕΙΜΩΝΟΣ [Lit/h]", 12},
                                     {"ΠΤΩΣΗ ΠΙΕΣΗΣ [mm w.g.]", 12}};
  for (const int typed : {winter_column::kLength, winter_column::kFlow, winter_column::kDrop}) {
    columns[static_cast<std::size_t>(typed)].open = true;
  }
  columns[winter_column::kFlow].bold = columns[winter_column::kDrop].bold = true;
  return columns;
}

std::vector<CellTyping> WinterTyping() {
  std::vector<CellTyping> typing(7, {KeyFamily::kUnsignedDecimal});
  for (int column = winter_column::kSection; column <= winter_column::kSummerDrop; ++column) {
    typing[static_cast<std::size_t>(column)].locked = true;
  }
  return typing;
}

GridCell NumberCell(float number, std::string_view pattern, Separators separators) {
  return {number == 0 ? std::string() : FormatPattern(number, pattern, separators), Tone::kPlain,
          number};
}

}  // namespace

std::optional<WinterValue> WinterValueOf(int column) {
  switch (column) {
    case winter_column::kLength:
      return WinterValue::kLength;
    case winter_column::kFlow:
      return WinterValue::kFlow;
    case winter_column::kDrop:
      return WinterValue::kDrop;
    default:
      return std::nullopt;
  }
}

int WinterColumnOf(WinterValue value) {
  return value == WinterValue::kLength ? winter_column::kLength
         : value == WinterValue::kFlow ? winter_column::kFlow
                                       : winter_column::kDrop;
}

void SetUpWinterGrid(EditableGrid& grid, const WinterSitting& sitting, Separators separators) {
  const int rows = static_cast<int>(sitting.summer().size());
  grid.Reset(WinterColumns(), rows);
  grid.SetTyping(WinterTyping());
  grid.used_rows = rows;
  for (int row = 0; row < rows; ++row) {
    const auto at = static_cast<std::size_t>(row);
    const WinterLine& summer = sitting.summer()[at];
    grid.Set(row, winter_column::kSection, {std::to_string(summer.section)});
    grid.Set(row, winter_column::kName, {sitting.names()[at]});
    grid.Set(row, winter_column::kSummerFlow,
             NumberCell(summer.flow_lh, pattern::kOneDecimal, separators));
    grid.Set(row, winter_column::kSummerDrop,
             NumberCell(summer.drop, pattern::kOneDecimal, separators));
    ShowWinterRow(grid, sitting, row, separators, std::nullopt);
  }
}

void ShowWinterRow(EditableGrid& grid, const WinterSitting& sitting, int row, Separators separators,
                   std::optional<GridPlace> refused) {
  const WinterLine& line = sitting.values().lines.at(static_cast<std::size_t>(row));
  for (const WinterValue what : {WinterValue::kLength, WinterValue::kFlow, WinterValue::kDrop}) {
    GridCell cell = NumberCell(ValueOf(line, what), pattern::kOneToThreeDecimals, separators);
    cell.refused = refused == GridPlace{row, WinterColumnOf(what)};
    grid.Set(row, WinterColumnOf(what), std::move(cell));
  }
}

std::string WinterCellText(const WinterSitting& sitting, GridPlace place, Separators separators) {
  const auto row = static_cast<std::size_t>(place.row);
  const auto number = [separators](float value) {
    return value == 0 ? std::string() : FormatNumber(value, separators);
  };
  if (const auto what = WinterValueOf(place.column)) {
    return number(ValueOf(sitting.values().lines.at(row), *what));
  }
  const WinterLine& summer = sitting.summer().at(row);
  switch (place.column) {
    case winter_column::kSection:
      return std::to_string(summer.section);
    case winter_column::kName:
      return sitting.names().at(row);
    case winter_column::kSummerFlow:
      return number(summer.flow_lh);
    default:
      return number(summer.drop);
  }
}

}  // namespace kalvo

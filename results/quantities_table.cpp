#include "results/quantities_table.h"

#include <algorithm>

#include "study/numeric_text.h"

namespace kalvo {
namespace {

constexpr int kLeastRows = 27;
constexpr const char* kNone = "---";

// A column of sums.
struct SumColumn {
  const char* header;
  float StatRow::*sum;
  int width;
  bool closes_family = false;
};

constexpr SumColumn kSums[] = {{"ΣΥΝΟΛΙΚΟ ΜΗΚΟΣ, [m]", &StatRow::Length, 10, true},
                               {"ΓΩΝΙΕΣ 90°", &StatRow::Corners, 8},
                               {"ΚΑΜΠΥΛΕΣ 90°", &StatRow::Elbows, 9, true},
                               {"ΠΛΗΘΟΣ ΒΑΝΝΩΝ", &StatRow::GlobeV, 9},
                               {"ΕΥΘΕΙΣ ΔΙΑΚΟΠΤΕΣ", &StatRow::StraightV, 10},
                               {"ΓΩΝΙΑΚΟΙ ΔΙΑΚΟΠΤΕΣ", &StatRow::CornerV, 10},
                               {"ΒΑΛΒΙΔΕΣ ΑΝΤΕΠ/ΦΗΣ", &StatRow::CheckV, 10}};

std::vector<GridColumn> Columns() {
  std::vector<GridColumn> columns = {{.header = "ΔΙΑΘΕΣΙΜΕΣ ΟΝΟΜΑΣΤΙΚΕΣ ΔΙΑΜΕΤΡΟΙ ΣΩΛΗΝΩΝ",
                                      .width = 12,
                                      .number = false,
                                      .closes_family = true,
                                      .bold = true,
                                      .centred = true}};
  for (const SumColumn& sum : kSums) {
    columns.push_back(
        {.header = sum.header, .width = sum.width, .closes_family = sum.closes_family});
  }
  return columns;
}

float LongestOf(const std::vector<StatRow>& lines) {
  float longest = 0;
  for (const StatRow& line : lines) longest = std::max(longest, line.Length);
  return longest;
}

}  // namespace

void ShowQuantities(Grid& grid, const Quantities& quantities, Separators separators) {
  const auto sizes = static_cast<int>(quantities.lines.size());
  const int rows = std::max(sizes, kLeastRows);
  grid.Reset(Columns(), rows, rows - sizes);
  const float longest = LongestOf(quantities.lines);
  for (int row = 0; row < sizes; ++row) {
    const StatRow& line = quantities.lines[static_cast<std::size_t>(row)];
    const PipeRow& pipe = quantities.pipes[static_cast<std::size_t>(row)];
    grid.Set(row, 0,
             {.text = pipe.nominal_diameter.Utf8(),
              .tone = IsInUse(line) ? Tone::kPlain : Tone::kQuiet,
              .value = pipe.inner_diameter});
    int column = 0;
    for (const SumColumn& sum : kSums) {
      const float value = line.*sum.sum;
      GridCell cell{.text = value == 0.0F ? kNone : FormatNumber(value, separators),
                    .tone = value == 0.0F ? Tone::kQuiet : Tone::kPlain,
                    .value = value};
      if (sum.sum == &StatRow::Length && value > 0.0F) cell.share = value / longest;
      grid.Set(row, ++column, std::move(cell));
    }
  }
}

}  // namespace kalvo

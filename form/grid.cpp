#include "form/grid.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>

namespace kalvo {

void Grid::Reset(std::vector<GridColumn> columns, int rows, int blank) {
  columns_ = std::move(columns);
  blank_ = blank;
  cells_.assign(columns_.size() * static_cast<std::size_t>(rows), GridCell{});
  marked_.assign(static_cast<std::size_t>(rows), false);
  numbers_.clear();
  selected_.assign(static_cast<std::size_t>(rows), false);
  order_.resize(static_cast<std::size_t>(rows));
  std::iota(order_.begin(), order_.end(), 0);
  sort_column_ = -1;
  sort_order_ = SortOrder::kNone;
  changes_.Reset();
  SetCurrent(current_);
}

void Grid::InsertRows(int at, int count) {
  if (count <= 0) return;
  const auto columns = static_cast<std::ptrdiff_t>(columns_.size());
  cells_.insert(cells_.begin() + at * columns, static_cast<std::size_t>(count * columns), {});
  marked_.insert(marked_.begin() + at, static_cast<std::size_t>(count), false);
  selected_.insert(selected_.begin() + at, static_cast<std::size_t>(count), false);
  RenewOrder();
  if (current_.row >= at) SetCurrent({current_.row + count, current_.column});
  changes_.Rows(GridChange::Kind::kInserted, at, at + count - 1);
}

void Grid::RemoveRows(int at, int count) {
  if (count <= 0) return;
  const auto columns = static_cast<std::ptrdiff_t>(columns_.size());
  cells_.erase(cells_.begin() + at * columns, cells_.begin() + (at + count) * columns);
  marked_.erase(marked_.begin() + at, marked_.begin() + at + count);
  selected_.erase(selected_.begin() + at, selected_.begin() + at + count);
  RenewOrder();
  const int row = current_.row < at ? current_.row : std::max(current_.row - count, at);
  SetCurrent({row, current_.column});
  changes_.Rows(GridChange::Kind::kRemoved, at, at + count - 1);
}

// After rows have come or gone: they are shown as they are kept.
void Grid::RenewOrder() {
  order_.resize(marked_.size());
  std::iota(order_.begin(), order_.end(), 0);
}

const GridCell& Grid::At(int row, int column) const {
  return cells_.at(static_cast<std::size_t>(row) * columns_.size() +
                   static_cast<std::size_t>(column));
}

void Grid::Set(int row, int column, GridCell cell) {
  GridCell& kept =
      cells_.at(static_cast<std::size_t>(row) * columns_.size() + static_cast<std::size_t>(column));
  if (kept == cell) return;
  kept = std::move(cell);
  changes_.Cells(row);
}

void Grid::SetNumber(int row, int number) {
  if (numbers_.empty()) {
    numbers_.resize(order_.size());
    std::iota(numbers_.begin(), numbers_.end(), 1);
  }
  numbers_.at(static_cast<std::size_t>(row)) = number;
  changes_.Cells(row);
}

int Grid::NumberOf(int row) const {
  return numbers_.empty() ? row + 1 : numbers_.at(static_cast<std::size_t>(row));
}

void Grid::Mark(int row, bool marked) {
  marked_.at(static_cast<std::size_t>(row)) = marked;
  changes_.Cells(row);
}

void Grid::SetCurrent(GridPlace place) {
  current_.row = std::clamp(place.row, 0, std::max(row_count() - blank_ - 1, 0));
  current_.column = std::clamp(place.column, 0, std::max(column_count() - 1, 0));
}

void Grid::MoveTo(GridPlace place) {
  const GridPlace before = current_;
  SetCurrent(place);
  if (current_ != before && on_move) on_move();
}

void Grid::Select(int row, bool selected) {
  selected_.at(static_cast<std::size_t>(row)) = selected && selects_rows && !IsBlank(row);
}

std::vector<int> Grid::SelectedRows() const {
  std::vector<int> rows;
  for (int row = 0; row < row_count(); ++row) {
    if (IsSelected(row)) rows.push_back(row);
  }
  return rows;
}

void Grid::TakeSelection(std::span<const int> rows) {
  const std::vector<bool> before = selected_;
  selected_.assign(selected_.size(), false);
  for (const int row : rows) Select(row, true);
  if (selected_ != before && on_select) on_select();
}

bool Grid::PressToSelect(const Key& key) {
  const bool toggles = key.code == KeyCode::kCharacter && key.character == U' ' && !key.alt;
  if (!selects_rows || (!toggles && key != Ctrl('A'))) return false;
  std::vector<int> rows = SelectedRows();
  if (!toggles) {
    rows.resize(static_cast<std::size_t>(row_count() - blank_));
    std::iota(rows.begin(), rows.end(), 0);
  } else if (std::erase(rows, current_.row) == 0 && current_.row >= 0) {
    rows.push_back(current_.row);
  }
  TakeSelection(rows);
  return true;
}

bool Grid::Before(int a, int b) const {
  const GridCell& first = At(a, sort_column_);
  const GridCell& second = At(b, sort_column_);
  if (first.value && second.value) return *first.value < *second.value;
  return first.text < second.text;
}

void Grid::Sort() {
  std::iota(order_.begin(), order_.end(), 0);
  const std::span<int> filled(order_.data(), order_.size() - static_cast<std::size_t>(blank_));
  if (sort_order_ == SortOrder::kRising) {
    std::ranges::stable_sort(filled, [this](int a, int b) { return Before(a, b); });
  } else if (sort_order_ == SortOrder::kFalling) {
    std::ranges::stable_sort(filled, [this](int a, int b) { return Before(b, a); });
  }
}

void Grid::CycleSort(int column) {
  if (!sortable) return;
  if (column != sort_column_ || sort_order_ == SortOrder::kNone) {
    sort_column_ = column;
    sort_order_ = SortOrder::kRising;
  } else if (sort_order_ == SortOrder::kRising) {
    sort_order_ = SortOrder::kFalling;
  } else {
    sort_column_ = -1;
    sort_order_ = SortOrder::kNone;
  }
  Sort();
  changes_.Reset();
}

std::string Grid::Copy(std::span<const GridPlace> places) const {
  const std::set<GridPlace> wanted(places.begin(), places.end());
  if (wanted.empty()) return {};
  const auto [first, last] = std::minmax_element(
      wanted.begin(), wanted.end(),
      [](const GridPlace& a, const GridPlace& b) { return a.column < b.column; });
  std::string text;
  if (copies_heads) {
    for (int column = first->column; column <= last->column; ++column) {
      text +=
          (column == first->column ? "" : "\t") + columns_[static_cast<std::size_t>(column)].header;
    }
  }
  for (const int row : order_) {
    std::string line;
    bool any = false;
    for (int column = first->column; column <= last->column; ++column) {
      line += column == first->column ? "" : "\t";
      if (wanted.contains({row, column})) {
        any = true;
        line += At(row, column).text;
      }
    }
    if (any) text += (text.empty() ? "" : "\n") + line;
  }
  return text;
}

}  // namespace kalvo

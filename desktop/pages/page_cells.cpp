#include "desktop/pages/page_cells.h"

#include <algorithm>

namespace kalvo {
namespace {

bool Touch(const CellRange& a, const CellRange& b) {
  return a.first_row <= b.last_row && b.first_row <= a.last_row &&
         a.first_column <= b.last_column && b.first_column <= a.last_column;
}

}  // namespace

PageCells::PageCells(const Workbook& workbook, const PageLayout& layout, const CellRange& range)
    : workbook_(workbook), range_(range) {
  const std::size_t count = Place(range_.last_row, range_.last_column) + 1;
  cells_.resize(count);
  merge_of_.resize(count, -1);
  if (layout.sheet == nullptr) return;
  PlaceCells(layout);
  PlaceMerges(layout);
}

std::size_t PageCells::Place(int row, int column) const {
  const int columns = range_.last_column - range_.first_column + 1;
  return static_cast<std::size_t>((row - range_.first_row) * columns + column -
                                  range_.first_column);
}

void PageCells::PlaceCells(const PageLayout& layout) {
  const auto& rows = layout.sheet->rows;
  for (auto row = rows.lower_bound(range_.first_row);
       row != rows.end() && row->first <= range_.last_row; ++row) {
    if (row->second.IsHidden()) continue;
    for (const Cell& cell : row->second.cells) {
      if (!IsOnPage(row->first, cell.column)) continue;
      if (layout.Left(cell.column + 1) > layout.Left(cell.column)) {
        cells_[Place(row->first, cell.column)] = &cell;
      }
    }
  }
}

// Merged cells end where the sheet's pages do.
void PageCells::PlaceMerges(const PageLayout& layout) {
  for (CellRange merged : layout.sheet->merges) {
    if (!Touch(merged, range_)) continue;
    merged.last_row = std::min(merged.last_row, layout.row_count() - 1);
    merged.last_column = std::min(merged.last_column, layout.column_count() - 1);
    for (int row = std::max(merged.first_row, range_.first_row);
         row <= std::min(merged.last_row, range_.last_row); ++row) {
      for (int column = std::max(merged.first_column, range_.first_column);
           column <= std::min(merged.last_column, range_.last_column); ++column) {
        merge_of_[Place(row, column)] = static_cast<int>(merges_.size());
      }
    }
    merges_.push_back(merged);
  }
}

bool PageCells::IsOnPage(int row, int column) const {
  return row >= range_.first_row && row <= range_.last_row && column >= range_.first_column &&
         column <= range_.last_column;
}

const Cell* PageCells::At(int row, int column) const {
  return IsOnPage(row, column) ? cells_[Place(row, column)] : nullptr;
}

const CellFormat* PageCells::FormatAt(int row, int column) const {
  const Cell* cell = At(row, column);
  return cell == nullptr ? nullptr : &workbook_.FormatOf(cell->format);
}

const CellRange* PageCells::MergeAt(int row, int column) const {
  if (!IsOnPage(row, column)) return nullptr;
  const int merge = merge_of_[Place(row, column)];
  return merge < 0 ? nullptr : &merges_[static_cast<std::size_t>(merge)];
}

bool PageCells::IsFree(int row, int column) const {
  if (!IsOnPage(row, column) || MergeAt(row, column) != nullptr) return false;
  const Cell* cell = At(row, column);
  return cell == nullptr || std::holds_alternative<std::monostate>(cell->value);
}

}  // namespace kalvo

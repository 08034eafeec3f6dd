#pragma once

#include <vector>

#include "desktop/pages/page_layout.h"

namespace kalvo {

/// The cells of a page in rows and columns, and which of them are merged.
class PageCells {
 public:
  PageCells(const Workbook& workbook, const PageLayout& layout, const CellRange& range);

  [[nodiscard]] const CellRange& range() const { return range_; }
  /// Merged cells of which some are on the page.
  [[nodiscard]] const std::vector<CellRange>& merges() const { return merges_; }

  [[nodiscard]] bool IsOnPage(int row, int column) const;
  /// Nothing where no cell is, where it is hidden, and off the page.
  [[nodiscard]] const Cell* At(int row, int column) const;
  [[nodiscard]] const CellFormat* FormatAt(int row, int column) const;
  /// The merged cells to which one belongs, nullptr when to none.
  [[nodiscard]] const CellRange* MergeAt(int row, int column) const;
  /// On the page, without a value and not merged: a text may run on over it.
  [[nodiscard]] bool IsFree(int row, int column) const;

 private:
  [[nodiscard]] std::size_t Place(int row, int column) const;
  void PlaceCells(const PageLayout& layout);
  void PlaceMerges(const PageLayout& layout);

  const Workbook& workbook_;
  CellRange range_;
  std::vector<CellRange> merges_;
  std::vector<const Cell*> cells_;
  std::vector<int> merge_of_;  // place in merges_, -1: none
};

}  // namespace kalvo

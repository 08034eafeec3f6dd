#pragma once

#include <vector>

#include "desktop/pages/paper.h"
#include "platform/xls/workbook.h"

namespace kalvo {

/// The cells that are on a page, and where the first of them is on the paper, in twips.
struct SheetPage {
  CellRange cells;
  double left = 0;
  double top = 0;

  bool operator==(const SheetPage&) const = default;
};

/// Where the cells of a sheet are on pages. Lengths are twips; those of the sheet are before
/// scaling.
struct PageLayout {
  const Sheet* sheet = nullptr;  ///< nothing: there is no sheet to print
  Paper paper;
  double scale = 1;
  std::vector<double> row_edges;     ///< from the upper edge of row 0; one more than rows
  std::vector<double> column_edges;  ///< likewise from the left
  std::vector<SheetPage> pages;      ///< at least one, so that there is something to look at

  [[nodiscard]] double Left(int column) const {
    return column_edges[static_cast<std::size_t>(column)];
  }
  [[nodiscard]] double Top(int row) const { return row_edges[static_cast<std::size_t>(row)]; }
  [[nodiscard]] int row_count() const { return static_cast<int>(row_edges.size()) - 1; }
  [[nodiscard]] int column_count() const { return static_cast<int>(column_edges.size()) - 1; }
};

/// The pages of the first worksheet that is not hidden: of its print area, else of all cells that
/// show something. A page ends at a break of the sheet, or before the first row or column that has
/// no room within the margins; pages go down first, then to the right. The scale is the sheet's
/// own, whatever it says of fitting pages. The workbook must outlive the layout.
PageLayout LayOutPages(const Workbook& workbook);

}  // namespace kalvo

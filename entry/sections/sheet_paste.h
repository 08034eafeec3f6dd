#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entry/sections/section_draft.h"
#include "form/editable_grid.h"
#include "study/separators.h"

namespace kalvo {

/// A block of cells as text: rows in lines, cells parted by tabs, as spreadsheets copy it.
using CellBlock = std::vector<std::vector<std::string>>;

/// The cells of a copied text. Either line end, a closing one is no row; a cell in quotes may hold
/// tabs, line ends (which become blanks) and doubled quotes.
CellBlock CellsOf(std::string_view text);

/// The selected cells as such a text, each as `text_of` gives it.
std::string BlockText(const std::vector<GridBlock>& selection,
                      const std::function<std::string(GridPlace)>& text_of);
/// The same of a draft; "/" is between the names.
std::string BlockText(const SectionDraft& draft, const std::vector<GridBlock>& selection);

/// A text for a cell.
struct CellText {
  int row = 0;
  int column = 0;
  std::string text;
  bool operator==(const CellText&) const = default;
};

/// What a paste does: the cells that take their text, and what is left out.
struct PastePlan {
  std::vector<CellText> cells;
  std::vector<CellText> refused;
  int last_row = -1;  ///< the lowest row and the last column that the block reaches
  int last_column = -1;
};

/// A number of the block in which the locale's thousands sign may be meant as the decimal one, and
/// no other number tells; empty when there is none.
std::string DoubtfulNumber(const CellBlock& cells, const GridBlock& target, Separators separators);

/// Where the cells of a copied text go when it is pasted at the selected block. A single cell fills
/// the whole block. What falls on the column of "/" is dropped when all of it is "/" or empty; else
/// the column is passed over. Names have at most three characters of the code page, numbers no
/// sign, and whole numbers where the column counts (decimals of an other drop come in). Texts that
/// do not fit, and rows from `most_rows` on, are refused. `thousands` settles doubtful numbers.
PastePlan PlanPaste(const CellBlock& cells, const GridBlock& target, int most_rows,
                    Separators separators, bool thousands);

/// The text as the cell of that column holds it: a source's name in Latin, a number in its default
/// text. Nothing when it does not fit. Where `thousands` a lone thousands sign parts thousands.
std::optional<std::string> FittingText(std::string_view text, int column, Separators separators,
                                       bool thousands = false);

}  // namespace kalvo

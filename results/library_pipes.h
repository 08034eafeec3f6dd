#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "form/grid.h"
#include "study/workbench.h"

namespace kalvo {

/// The pipes of a library as the forms that change diameters list them: nominal and inner diameter
/// in the first two columns.

/// A column of such a list; widths in digits.
GridColumn CentredColumn(const char* header, int width);

/// The inner diameter in its brackets, " [ 21,7 ]".
std::string BracketedDiameter(float mm, Separators separators);

/// Shows the pipes from row 0 on; the grid must have a row for each.
void ShowPipes(Grid& grid, std::span<const PipeRow> pipes, Separators separators);

/// Whether the row has this nominal diameter.
bool BearsDiameter(const PipeRow& pipe, const SectionRow& row);

/// What came of choosing a pipe from the list shown.
struct PipeChoice {
  std::optional<PipeRow> pipe;  ///< nothing: none was, and `refusal` or a box says why
  std::string refusal;
  std::optional<std::vector<PipeRow>> changed_library;  ///< to be shown instead
};

/// The pipe in that row of the list, as the study's library has it now.
PipeChoice ChoosePipe(Workbench& bench, std::span<const PipeRow> shown, int row);

}  // namespace kalvo

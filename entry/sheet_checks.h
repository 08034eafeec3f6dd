#pragma once

#include <string>
#include <vector>

#include "entry/section_draft.h"
#include "form/editable_grid.h"
#include "study/separators.h"

namespace kalvo {

/// What is worth knowing of a row while it is typed, a few words each; nothing bars the typing.
/// Closed: an end that no section begins at, a beginning that none ends at, a run that goes on in
/// one section only. Open: a feeder that is no row. Both: a name that another row has too.
std::vector<std::string> RowRemarks(const SectionDraft& draft, int row);

/// "12 κελιά, άθροισμα 34,5" of the selected cells that hold something; empty for a single cell.
std::string SelectionSummary(const SectionDraft& draft, const std::vector<GridBlock>& selection,
                             Separators separators);

}  // namespace kalvo

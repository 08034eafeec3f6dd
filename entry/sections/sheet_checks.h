#pragma once

#include <string>
#include <vector>

#include "entry/sections/section_draft.h"
#include "form/editable_grid.h"
#include "study/separators.h"

namespace kalvo {

/// What is worth knowing of a row while it is typed, in a few words; nothing bars the typing.
struct RowRemarks {
  std::string text;    ///< parted by dots
  bool fault = false;  ///< something in it is wrong
};

/// Closed: an end that no section begins at, a beginning that none ends at; no fault: a run that
/// goes on in one section only. Open: a feeder that is no row. Both: a name that another row has
/// too.
RowRemarks RemarksOf(const SectionDraft& draft, int row);
/// The same for a row that has these texts now.
RowRemarks RemarksOf(const SectionDraft& draft, int row, const SheetRow& texts);

/// "12 κελιά, άθροισμα 34,5" of the selected cells that hold something; empty for a single cell.
std::string SelectionSummary(const SectionDraft& draft, const std::vector<GridBlock>& selection,
                             Separators separators);

}  // namespace kalvo

#pragma once

#include <optional>
#include <string>

#include "entry/sections/section_draft.h"
#include "form/editable_grid.h"
#include "study/separators.h"

namespace kalvo {

/// Gives an empty grid the columns of the sheet, and rows.
void SetUpSheet(EditableGrid& grid, const SectionDraft& draft);

/// Brings the grid up to date with what has changed in the draft: rows come and go as such, so that
/// selection and scroll stay. There are always empty rows to type into.
void FollowDraft(EditableGrid& grid, SectionDraft& draft);

/// What an edited text becomes in its cell. Nothing: the number is too large for any row, or the
/// name is neither a number nor that of the source.
std::optional<std::string> AcceptedText(std::string_view text, int column, Separators separators);

}  // namespace kalvo

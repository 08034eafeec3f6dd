#pragma once

#include "entry/sections/section_draft.h"
#include "form/pictures.h"

namespace kalvo {

/// The drawing of a section that has these texts, among the others of the draft. Rows count from 0.
SectionSketchContent SketchOf(const SectionDraft& draft, int row, const SheetRow& texts);

}  // namespace kalvo

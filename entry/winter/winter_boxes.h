#pragma once

#include "engine/winter.h"
#include "study/prompter.h"

namespace kalvo {

/// A value of the emitter's line that must not be 0.
Box WinterZeroBox(int section, WinterValue value);

/// Asks whether a flow that is not below that of summer may stand.
Box WinterFlowBox(const WinterLine& line, float summer_flow_lh);

/// Asks whether winter data that are in no file are to be kept, which is the default.
/// `with_sections`: those of the sections are in no file either.
Box KeepWinterBox(bool with_sections);

/// The pump of the winter, from row 1 of the winter rows.
Box WinterPumpBox(const SectionRow& first_row, Separators separators);

}  // namespace kalvo

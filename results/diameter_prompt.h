#pragma once

#include <vector>

#include "form/desk.h"

namespace kalvo {

/// How the rows stand to a change of diameters that waits for its calculation.
enum class WaitingChange {
  kNone,       ///< no change was opened from the menu: `DATARES.@@@` is missing
  kUnchanged,  ///< one was, yet every row has its calculated diameter
  kChanged,    ///< a row has another one than calculated
};

WaitingChange FindWaitingChange(const Workbench& bench, const std::vector<SectionRow>& rows);

/// What the question about a waiting change led to.
enum class PromptEnd {
  kNothing,       ///< all stays
  kBroughtBack,   ///< the rows from before the change stand again
  kRecalculated,  ///< the view was closed, the summary of the new results shows
  kFailed,        ///< the calculation did not come about; the way back stays open
};

/// Asks whether to calculate on the changed diameters, and does what was answered. The rows from
/// before the change stay in `DATARES.@@@` until new results have taken their place.
PromptEnd AskAboutChange(Desk& desk, const std::vector<SectionRow>& rows);

}  // namespace kalvo

#pragma once

#include <memory>
#include <string_view>

#include "entry/sections/section_sitting.h"
#include "form/key.h"

namespace kalvo {

// What the sheet and the form of sections have in common.

/// The other of the two.
constexpr Key kCtrlAltShift = {KeyCode::kCharacter, 0, true, true, true};

/// The sitting under way, or a new one.
std::shared_ptr<SectionSitting> SittingOf(Desk& desk);

/// The screen to which the end of an entry with changes leads: the emitters or outlets of rows that
/// are new, came in or went, else the main menu.
std::string_view ScreenAfterEntry(Desk& desk, const DraftRows& made);

}  // namespace kalvo

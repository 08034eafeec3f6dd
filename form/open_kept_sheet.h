#pragma once

#include "form/desk.h"

namespace kalvo {

/// Opens the section sheet with what it kept (`ScreenState::open_kept_sheet`).
void OpenKeptSheet(Desk& desk);

/// What needs the rows asks this first. While the sheet holds what they do not, the user is asked
/// whether to open it, which is the default. True: the command stops, the sheet opens or the
/// question was closed without an answer.
bool AskToOpenKeptSheet(Desk& desk);

}  // namespace kalvo

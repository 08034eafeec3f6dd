#pragma once

#include <functional>

#include "form/desk.h"

namespace kalvo {

/// A view of results opens: row 1 is the current one, and the rows as they stand begin the session
/// (`FIRSTONE.TMP`) when it was opened from the menu or by a run. Results that are seen for the
/// first time become the study's.
Outcome BeginResults(Desk& desk);

/// The way back from a view: when diameters were imposed since the session began the user keeps
/// the new ones or gets the old rows back (message 307). The session's files go, and the main menu
/// shows. `reread` brings the view up to date after old rows came back.
void LeaveResults(Desk& desk, const std::function<void()>& reread);

/// Shows the critical branch (message 302); that of a single section is "1".
void ShowCriticalBranch(Desk& desk);

}  // namespace kalvo

#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "form/desk.h"
#include "form/key.h"

namespace kalvo {

/// A session of results lasts from the opening of a view to Back; `FIRSTONE.TMP` holds the rows
/// with which it began.

/// What leads from one view to the other: Shift+F12, or Ctrl, Alt and Shift pressed alone.
inline std::vector<Key> OtherViewKeys() {
  return {Shift(KeyCode::kF12), {KeyCode::kCharacter, 0, true, true, true}};
}

/// All rows, for a view; their count and `SingleSection` go into the study. Error: there is none,
/// or the file cannot be read.
Result<std::vector<SectionRow>> TakeResultRows(Workbench& bench);

/// First steps of a view: the main menu leaves the screen, row 1 is the current one, and where a
/// session begins the rows are kept as its first.
void OpenView(Desk& desk);

/// Keeps the rows, calculated ones, for a way back: as `FIRSTONE.TMP` or `DATARES.@@@`. False: they
/// cannot be kept, which the user was told; where they can be read, no older ones stay in their
/// place.
bool KeepRows(Desk& desk, std::string_view kept);

/// The rows become the ones that changes of diameters are found against, `DATARES.PRV`. False: they
/// could not, which the user was told, and none are there.
bool MakePreviousRows(Workbench& bench);

/// Results that are looked at become the study's, unless a new calculation is needed.
void CountAsShown(Desk& desk);

/// Shows message 302. A single section is its own critical branch.
void ShowCriticalBranch(Workbench& bench);

/// The rows kept in the work file `kept` stand again, with the study's totals, critical branch and
/// quantities; they are calculated ones, and unsaved if they were so when they were kept.
/// Changes of diameters that were made on rows after them can no longer be taken back.
/// False: they could not be brought back, and the user was told why.
bool BringBackRows(Desk& desk, std::string_view kept);

inline constexpr const char* kNoResults =
    "Ο υπολογισμός με τις νέες διαμέτρους ΔΕΝ ολοκληρώθηκε, τα αποτελέσματα ΔΕΝ ισχύουν.";

/// Whether the rows on show have their results. False: the last calculation failed, and the user
/// was told.
bool ResultsHold(Desk& desk);

/// The rows have become others: the pump's page, if it is open, shows the pump from before.
void ClosePump(Desk& desk);

/// The calculation that a change of diameters still waits for, before anything else than the
/// section's own view deals with the rows. Gives whether one was made, or tried; nothing: the rows
/// cannot be read, which the user was told.
std::optional<bool> RerunWaitingChange(Desk& desk);

/// Back from a view: a change that waits is calculated, whether new diameters shall stand is asked,
/// the session ends and the main menu shows. An answer that was left open, or could not be carried
/// out, leaves the results open.
/// `show_again` shows the rows anew after an answer.
void GoBack(Desk& desk, std::string_view view, const std::function<void()>& show_again);

/// A view was closed by its window: a change that waits is calculated, the diameters stand, the
/// session ends and what it was opened from shows.
void LeaveByWindow(Desk& desk);

/// The form for one diameter closes when it is open, which is heard.
void CloseOneDiameter(Desk& desk);

}  // namespace kalvo

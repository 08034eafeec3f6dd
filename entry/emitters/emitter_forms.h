#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "form/desk.h"
#include "form/field.h"
#include "form/key.h"
#include "form/tell.h"

namespace kalvo {

/// What the forms of emitters and of outlets have in common.

/// Opens the form of memory values.
constexpr Key kAltCtrl = {KeyCode::kCharacter, 0, true, false, true};
/// Leaves at once.
constexpr Key kAltShift = {KeyCode::kCharacter, 0, false, true, true};

inline constexpr std::string_view kEmitterWait = " ... Παρακαλώ, Περιμένετε ... ";

/// The keys of both forms in a box, after two beeps.
void ShowEmitterKeys(Workbench& bench);

/// Puts the values that are in memory into the fields of the same places. False: there are none.
bool FillFromMemory(std::span<const float> memory, std::span<Field* const> fields,
                    Separators separators);

/// A value in memory with its unit, a dash for none.
std::string MemoryText(float value, std::string_view unit, Separators separators);

/// The first field that holds no number or zero, nullptr when there is none.
Field* FirstZero(std::span<Field* const> fields, Separators separators);

/// True when nothing has been typed into any of the fields.
bool AreEmpty(std::span<Field* const> fields);

/// A value is missing: asks whether to leave all the same; staying is the default.
bool AskToLeaveAtOnce(Workbench& bench, const std::string& why);

/// Back to the main menu, or to the sheet that entry came from: closes the form and what entry has
/// opened beside it.
void LeaveEntry(Desk& desk, std::string_view own_screen);

/// Runs `action`; a file that said no is told. True: it went well.
template <typename Action>
bool TellIfFaulted(Workbench& bench, Action&& action) {
  try {
    action();
    return true;
  } catch (const Fault& fault) {
    if (fault.file_error() == nullptr) throw;
    TellError(bench, *fault.file_error());
    return false;
  }
}

}  // namespace kalvo

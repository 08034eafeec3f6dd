#pragma once

#include "form/desk.h"

namespace kalvo {

// Diameters that the user chose in the results, and what would size them anew.

/// What a calculation does with them.
enum class ImposedDiameters { kNone, kStay, kGo, kUndecided };

/// Asks whether they stay in the calculation that is about to run; where the pipe system has none
/// of them, whether it runs without. kNone: there are none. kUndecided: the user wants no
/// calculation, or the rows cannot be read, which is told.
ImposedDiameters AskAboutImposedDiameters(Workbench& bench);

/// A study that needs a calculation is saved without diameters: asks whether that may be when
/// imposed ones are among them. False: nothing is to be saved.
bool MaySaveWithoutImposed(Workbench& bench);

}  // namespace kalvo

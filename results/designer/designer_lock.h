#pragma once

#include "form/desk.h"

namespace kalvo {

/// The lock of prints through the program. Where the list of designers has a password the user is
/// asked for it, and the designer whose name goes on paper must be in the list; a name too long for
/// such a print has to be changed. False: the print must not begin; unless the user gave up, a box
/// said why.
bool MayPrintThroughProgram(Desk& desk);

}  // namespace kalvo

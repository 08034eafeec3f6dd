#pragma once

#include <string>

#include "form/desk.h"

namespace kalvo {

/// The designer whose name goes on paper: the one chosen in this run, else `Client` of row 1, else
/// the one chosen last. A name that fills `Client` may go on in the list of designers. Empty: none
/// of them is there. Error: the rows cannot be read.
Result<std::string> DesignerName(const Desk& desk);

/// Where row 1 has no `Client`, every row gets the designer's name and the study counts as changed.
/// False: rows could not be read or written, and a box said so.
bool FillClient(Desk& desk);

}  // namespace kalvo

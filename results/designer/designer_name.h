#pragma once

#include <string>

#include "form/desk.h"

namespace kalvo {

/// The designer whose name goes on paper: the one chosen in this run, else `Client` of row 1, else
/// the one chosen last. A name that fills `Client` may go on in the list of designers. Empty: none
/// of them is there. Error: the rows cannot be read.
Result<std::string> DesignerName(const Desk& desk);

/// The name that the study keeps: `Client` of row 1, whole if the list has it so. Empty: none.
/// Error: the rows cannot be read.
Result<std::string> StudysDesigner(const Desk& desk);

/// Where row 1 has no `Client`, every row gets the designer's name and the study counts as changed.
/// False: rows could not be read or written, and a box said so.
bool FillClient(Desk& desk);

}  // namespace kalvo

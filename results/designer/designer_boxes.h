#pragma once

#include <string>
#include <vector>

#include "form/field.h"
#include "study/workbench.h"

namespace kalvo {

constexpr std::string_view kPasswordCaption = "Password";

/// A box that warns, with the beeps of those that deal with designers.
Box DesignerBox(std::vector<std::string> lines);

/// A box that asks. Style: one of box_style.
Box DesignerQuestion(std::string title, std::vector<std::string> lines, int style);

/// True when `field` holds the password; otherwise a box said that it is missing or wrong.
bool HasPassword(Workbench& bench, const Field& field, const std::string& password);

/// Whether a name has room in a print that the program makes by itself.
bool FitsProgramPrint(std::string_view name);
/// The box for one that has none.
Box TooLongForProgramPrint();

}  // namespace kalvo

#pragma once

#include <string>
#include <string_view>

#include "study/workbench.h"

namespace kalvo {

/// Writes a sheet (`bytes`) to `Spread.@@@` or `Spread.ss2`, with the `Intro.ss2` that it needs
/// where there are no rows: that one first, so that a sheet is never there without it.
Outcome KeepSheet(Workspace& workspace, const Study& study, std::string_view file_name,
                  std::string bytes);

/// True unless `Spread.@@@` is surely not there: what was typed is in no row yet.
bool HasKeptSheet(const Workspace& workspace);

/// What was typed is in the rows, or given up. `Intro.ss2` goes with it unless `Spread.ss2` needs
/// it.
void DropKeptSheet(Workspace& workspace);

}  // namespace kalvo

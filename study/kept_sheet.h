#pragma once

#include <string>

#include "study/sheet_file.h"
#include "study/study.h"
#include "study/workspace.h"

namespace kalvo {

// The section sheet keeps itself in `Spread.@@@` as long as it holds what the rows do not, and in
// `Spread.ss2` when the user says so; `Intro.ss2` goes with either.

/// Keeps the sheet under `file_name`, and the study's general data beside it. Whenever this is
/// broken off, the sheet of before or this one is there, whole. Error: one of the two could not be
/// written, the other is written all the same.
Outcome KeepSheet(Workspace& workspace, const Study& study, std::string_view file_name,
                  std::string bytes);

/// Forces a sheet that was kept, and what goes with it, onto the medium.
Outcome FlushSheet(Workspace& workspace, std::string_view file_name);

/// Whether the sheet holds what the rows do not: false when `Spread.@@@` is surely not there. What
/// it holds, and how old it is, does not matter.
inline bool IsSheetKept(const Workspace& workspace) {
  return workspace.Exists(work_file::kSheetInWork);
}

/// Deletes `Spread.@@@`, and `Intro.ss2` unless a sheet that is still there needs it.
void DropKeptSheet(Workspace& workspace);

}  // namespace kalvo

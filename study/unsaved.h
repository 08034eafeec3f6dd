#pragma once

#include "study/kept_sheet.h"
#include "study/kept_winter.h"
#include "study/workbench.h"

namespace kalvo {

/// True when the open study has something that is in no file: as long as its sheet holds what the
/// rows do not, or winter's entry what the winter rows do not, whatever the flag says. Without
/// rows, and without a sheet, there is nothing to save.
inline bool HasUnsavedChanges(const Workbench& bench) {
  const Workspace& workspace = bench.workspace;
  return IsSheetKept(workspace) ||
         (workspace.HasBytes(work_file::kRows) && IsWinterKept(workspace)) ||
         (bench.study.unsaved_changes &&
          (workspace.HasBytes(work_file::kRows) || workspace.HasBytes(work_file::kSheet)));
}

}  // namespace kalvo

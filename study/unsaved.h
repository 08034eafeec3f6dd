#pragma once

#include "study/kept_sheet.h"

namespace kalvo {

/// True when the open study has something that is in no file. Without rows, and without a sheet
/// that was kept, there is nothing to save.
inline bool HasUnsavedChanges(const Workbench& bench) {
  return HasKeptSheet(bench.workspace) ||
         (bench.study.unsaved_changes && (bench.workspace.HasBytes(work_file::kRows) ||
                                          bench.workspace.HasBytes(work_file::kSheet)));
}

}  // namespace kalvo

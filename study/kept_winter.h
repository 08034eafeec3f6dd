#pragma once

#include "study/workspace.h"

namespace kalvo {

/// Whether winter's entry holds what `WINTCIRC.TMP` does not: false when `WINTCIRC.@@@` is surely
/// not there.
inline bool IsWinterKept(const Workspace& workspace) {
  return workspace.Exists(work_file::kWinterInWork);
}

/// After a crash: what was kept of winter's entry becomes the winter rows, if there is any. Error:
/// it stays where it is.
inline Outcome TakeKeptWinter(Workspace& workspace) {
  if (!IsWinterKept(workspace)) return Done{};
  Outcome flushed = workspace.Flush(work_file::kWinterInWork);
  return flushed ? workspace.MoveOver(work_file::kWinterInWork, work_file::kWinter) : flushed;
}

}  // namespace kalvo

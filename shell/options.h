#pragma once

#include "form/desk.h"
#include "study/workspace.h"

namespace kalvo {

/// Options remembered in the program folder; what is missing or cannot be read is as at first.
Options ReadOptions(const Workspace& workspace);

/// Remembers them. Error: the file cannot be written.
Outcome WriteOptions(Workspace& workspace, const Options& options);

}  // namespace kalvo

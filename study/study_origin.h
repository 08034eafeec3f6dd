#pragma once

#include <filesystem>

#include "study/workbench.h"

namespace kalvo {

// Which file the study in the work files belongs to, noted among them (`ORIGIN.TMP`): what is
// brought back after a crash, or from a safety copy, is saved under its own name again.

/// Notes that path; an empty one takes the note away. A note that cannot be written is no error: it
/// only saves typing.
void NoteOrigin(Workspace& workspace, const std::filesystem::path& path);

/// The path in the bytes of a note; empty when they hold none.
std::filesystem::path OriginIn(std::string_view note);

/// The path that the note among the work files gives; empty when there is none.
std::filesystem::path ReadOrigin(const Workspace& workspace);

}  // namespace kalvo

#pragma once

#include <filesystem>
#include <string>

#include "study/workspace.h"

namespace kalvo {

/// Folder of the studies below the one that the user names; the export folder is below that.
constexpr const char* kStudiesFolder = "PFILES";

/// The folder that `~vamo.wpf` names, empty when it names none: the first line, trimmed, in UTF-8
/// or the code page, with "/" or "\" between folders. Error: the file cannot be read.
Result<std::filesystem::path> ReadDataFolder(const Workspace& workspace);

/// The same at the start of the program: without a folder named, or with one of another system,
/// `PFILES` below the program folder is named. The folder is made if it can be. Error: nothing can
/// be written in the program folder, or `~vamo.wpf` cannot be read, which is left as it is.
Result<std::filesystem::path> EnsureDataFolder(Workspace& workspace);

/// The user's choice, without the last `PFILES`, as it is shown.
std::string ShownDataFolder(const std::filesystem::path& data_folder);

/// True for a full path.
bool IsFullPath(std::string_view typed);

/// Makes `typed` with `PFILES` and `PFILES/ASCII` below it (found ignoring case) and names it in
/// `~vamo.wpf`. A `PFILES` at its own end is the folder of the studies itself, which is given.
/// Error: it cannot be made, or not be named (the error's file is `~vamo.wpf` then).
Result<std::filesystem::path> SetDataFolder(Workspace& workspace, std::string_view typed);

}  // namespace kalvo

#pragma once

#include <filesystem>

#include "study/study_extensions.h"
#include "study/workbench.h"

namespace kalvo {

/// The name of a study's file without its last four characters.
std::string_view BaseOf(std::string_view file_name);

/// `path`, as it was given (PathFromText()), with the kind's extension appended unless its last
/// four characters are that already, ignoring case.
std::filesystem::path WithExtension(const std::filesystem::path& path, SystemKind kind);

/// `study path` as a full path that bears the kind's extension. Error: it holds no file's name.
Result<std::filesystem::path> FullStudyPath(const Study& study);

/// The path of a study's file as its folder spells it: as it stands, else with the extension in
/// another case, else with the whole name in another case, the first in name order. A file that is
/// not there keeps the path given.
std::filesystem::path AsInFolder(const Disk& disk, const std::filesystem::path& path);

/// Where the files of the study at `path` are: for a link to a main file of the same kind where it
/// leads, else the path itself.
std::filesystem::path BehindLink(const Disk& disk, const std::filesystem::path& path);

/// Base name, short name, folder, date (dd/MM/yyyy), time (HH:mm:ss) and last path from
/// `study path`.
void RebuildNameState(Workbench& bench);

}  // namespace kalvo

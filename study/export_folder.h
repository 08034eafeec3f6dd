#pragma once

#include <filesystem>
#include <string_view>

#include "study/disk.h"

namespace kalvo {

/// Folder of reports and other output, below that of the studies.
constexpr const char* kExportFolder = "ASCII";

/// The folder of that name below `above`, ignoring case, whether it is there or not.
Result<std::filesystem::path> FolderBelow(const Disk& disk, const std::filesystem::path& above,
                                          std::string_view name);

/// The same; made when it is not there.
Result<std::filesystem::path> EnsureFolderBelow(Disk& disk, const std::filesystem::path& above,
                                                std::string_view name);

/// The export folder of `data_folder`, whether it is there or not. Error: that of the studies is
/// not there, as on a medium that was taken out: nothing may be written in its place.
Result<std::filesystem::path> ExportFolder(const Disk& disk,
                                           const std::filesystem::path& data_folder);

/// The same; made when it is not there.
Result<std::filesystem::path> EnsureExportFolder(Disk& disk,
                                                 const std::filesystem::path& data_folder);

}  // namespace kalvo

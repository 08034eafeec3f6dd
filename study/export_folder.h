#pragma once

#include <filesystem>
#include <string_view>

#include "study/disk.h"

namespace kalvo {

/// Folder of reports and other output, below that of the studies.
constexpr const char* kExportFolder = "ASCII";

/// The folder of that name below `above`, ignoring case; made when none is there.
Result<std::filesystem::path> EnsureFolderBelow(Disk& disk, const std::filesystem::path& above,
                                                std::string_view name);

/// The export folder of `data_folder`, made when it is not there.
inline Result<std::filesystem::path> EnsureExportFolder(Disk& disk,
                                                        const std::filesystem::path& data_folder) {
  return EnsureFolderBelow(disk, data_folder, kExportFolder);
}

}  // namespace kalvo

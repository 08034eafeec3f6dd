#include "study/export_folder.h"

namespace kalvo {

Result<std::filesystem::path> FolderBelow(const Disk& disk, const std::filesystem::path& above,
                                          std::string_view name) {
  const auto there = FindIgnoringCase(disk, above, name);
  if (!there) return there.error();
  return above / there->value_or(std::string(name));
}

Result<std::filesystem::path> EnsureFolderBelow(Disk& disk, const std::filesystem::path& above,
                                                std::string_view name) {
  auto path = FolderBelow(disk, above, name);
  if (!path) return path;
  if (Outcome made = disk.MakeFolder(*path); !made) return made.error();
  return path;
}

Result<std::filesystem::path> ExportFolder(const Disk& disk,
                                           const std::filesystem::path& data_folder) {
  const auto there = disk.Status(data_folder);
  if (!there) return there.error();
  if (!*there) return FileError{data_folder, "Ο φάκελος των μελετών δεν υπάρχει"};
  return FolderBelow(disk, data_folder, kExportFolder);
}

Result<std::filesystem::path> EnsureExportFolder(Disk& disk,
                                                 const std::filesystem::path& data_folder) {
  auto path = ExportFolder(disk, data_folder);
  if (!path) return path;
  if (Outcome made = disk.MakeFolder(*path); !made) return made.error();
  return path;
}

}  // namespace kalvo

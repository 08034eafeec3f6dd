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

}  // namespace kalvo

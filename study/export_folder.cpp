#include "study/export_folder.h"

namespace kalvo {

Result<std::filesystem::path> EnsureFolderBelow(Disk& disk, const std::filesystem::path& above,
                                                std::string_view name) {
  const auto there = FindIgnoringCase(disk, above, name);
  if (!there) return there.error();
  const std::filesystem::path path = above / there->value_or(std::string(name));
  if (Outcome made = disk.MakeFolder(path); !made) return made.error();
  return path;
}

}  // namespace kalvo

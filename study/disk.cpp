#include "study/disk.h"

#include "study/letter_case.h"

namespace kalvo {

Outcome ReplaceFile(Disk& disk, const std::filesystem::path& path, std::string bytes) {
  std::filesystem::path beside = path;
  beside += kBesideEnd;
  if (Outcome written = disk.Write(beside, std::move(bytes)); !written) {
    static_cast<void>(disk.Remove(beside));
    return written;
  }
  Outcome renamed = disk.Rename(beside, path);
  if (!renamed) {
    static_cast<void>(disk.Remove(beside));
  }
  return renamed;
}

std::optional<std::string> FindIgnoringCase(const Disk& disk, const std::filesystem::path& folder,
                                            std::string_view name) {
  const std::string wanted = LowerCase(name);
  for (std::string& entry : disk.List(folder)) {
    if (LowerCase(entry) == wanted) {
      return std::move(entry);
    }
  }
  return std::nullopt;
}

}  // namespace kalvo

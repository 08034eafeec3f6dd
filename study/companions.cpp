#include "study/companions.h"

#include <algorithm>
#include <array>

#include "study/digest.h"
#include "study/study_file_names.h"

namespace kalvo {

namespace fs = std::filesystem;

namespace {

bool BelongsToAnother(const Disk& disk, const fs::path& main, const fs::path& companion) {
  const std::string name = companion.filename().string();
  const std::string main_name = main.filename().string();
  if (BaseOf(name) == BaseOf(main_name)) {
    return false;
  }
  const auto entries = disk.List(companion.parent_path());
  return entries && std::any_of(entries->begin(), entries->end(), [&](const std::string& entry) {
           return entry != main_name && BaseOf(entry) == BaseOf(name) &&
                  KindOfName(entry) != SystemKind::kNone;
         });
}

fs::path Beside(const fs::path& main, std::string_view extension) {
  const std::string name = main.filename().string();
  return main.parent_path() / (std::string(BaseOf(name)) + std::string(extension));
}

// What a file adds to the digest of its family; nothing when it is not there.
std::string Mark(const Disk& disk, const fs::path& path, const std::vector<FamilyFile>& known) {
  for (const FamilyFile& file : known) {
    if (file.name == path.filename()) {
      return std::to_string(Digest(file.bytes));
    }
  }
  const auto bytes = disk.Read(path);
  if (bytes) {
    return std::to_string(Digest(*bytes));
  }
  return bytes.error().IsMissing() ? "" : "?";
}

}  // namespace

std::optional<fs::path> CompanionOf(const Disk& disk, const fs::path& main,
                                    std::string_view extension) {
  if (extension.empty()) {
    return std::nullopt;
  }
  const fs::path path = AsInFolder(disk, Beside(main, extension));
  const bool is_own = disk.Exists(path) && !BelongsToAnother(disk, main, path);
  return is_own ? std::optional(path) : std::nullopt;
}

fs::path OwnFile(const Disk& disk, const fs::path& path) {
  fs::path entry = AsInFolder(disk, path);
  const bool own = BaseOf(entry.filename().string()) == BaseOf(path.filename().string());
  return own ? entry : path;
}

fs::path CompanionTarget(const Disk& disk, const fs::path& main, std::string_view extension) {
  return OwnFile(disk, Beside(main, extension));
}

std::uint64_t FamilyDigest(const Disk& disk, const fs::path& main,
                           const std::vector<FamilyFile>& known) {
  const StudyExtensions& extensions = ExtensionsOf(KindOfName(main.string()));
  std::string marks = Mark(disk, main, known);
  for (const std::string_view extension :
       {extensions.sequence, extensions.statistics, extensions.winter, extensions.fluid}) {
    const auto companion = CompanionOf(disk, main, extension);
    marks += "/" + (companion ? Mark(disk, *companion, known) : "");
  }
  return Digest(marks);
}

}  // namespace kalvo

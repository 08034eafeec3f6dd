#include "shell/safety_copies.h"

#include <algorithm>
#include <array>

#include "study/date_text.h"
#include "study/study_extensions.h"
#include "study/study_reset.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kNamelessStudy = "MELETH";

// Work files that are files of a saved study too.
struct SavedName {
  std::string_view work_name;
  std::string_view StudyExtensions::*extension;
};
constexpr std::array kSavedNames = {SavedName{work_file::kRows, &StudyExtensions::main},
                                    SavedName{work_file::kStatistics, &StudyExtensions::statistics},
                                    SavedName{work_file::kWinter, &StudyExtensions::winter},
                                    SavedName{work_file::kFluid, &StudyExtensions::fluid}};

SystemKind KindOfRows(const Workbench& bench) {
  const auto first = bench.workspace.Rows().Read(1);
  if (!first || (first->KLEIS != 0) == (first->ANOIK != 0)) return bench.study.system_kind;
  return first->ANOIK != 0 ? SystemKind::kOpen : SystemKind::kClosed;
}

// The name under which a work file is kept.
std::string NameInCopy(const Workbench& bench, std::string_view work_name, SystemKind kind) {
  const auto* saved = std::ranges::find(kSavedNames, work_name, &SavedName::work_name);
  if (saved == kSavedNames.end()) return std::string(work_name);
  const std::string_view extension = ExtensionsOf(kind).*(saved->extension);
  if (extension.empty()) return std::string(work_name);
  const std::string& base = bench.study.study_base_name;
  return (base.empty() ? std::string(kNamelessStudy) : base) + std::string(extension);
}

// A folder that is not there yet.
fs::path NewFolder(const Workbench& bench, const fs::path& above) {
  const std::string stamp = StampText(bench.workspace.Now());
  fs::path folder = above / stamp;
  for (int number = 2; bench.workspace.outer_disk().Exists(folder); ++number) {
    folder = above / (stamp + "-" + std::to_string(number));
  }
  return folder;
}

// Takes away the oldest copies past those that are kept. What cannot be removed stays.
void RemoveOldCopies(Disk& disk, const fs::path& above) {
  auto entries = disk.List(above);
  std::vector<std::string> copies = entries ? std::move(*entries) : std::vector<std::string>{};
  std::erase_if(copies, [&](const std::string& name) { return !disk.IsFolder(above / name); });
  std::ranges::sort(copies);
  for (std::size_t i = 0; i + kSafetyCopies < copies.size(); ++i) {
    const fs::path folder = above / copies[i];
    const auto names = disk.List(folder);
    for (const std::string& name : names ? *names : std::vector<std::string>{}) {
      static_cast<void>(disk.Remove(folder / name).ok());
    }
    static_cast<void>(disk.Remove(folder).ok());
  }
}

}  // namespace

bool RowsAreSaved(const Workbench& bench) {
  const auto rows = bench.workspace.ReadIfThere(work_file::kRows);
  if (!rows) return false;
  if (rows->empty()) return true;
  const fs::path& path = bench.study.study_path;
  if (path.empty() || path == kEscapePath) return false;
  const Disk& disk = bench.workspace.outer_disk();
  const auto saved = disk.Read(AsInFolder(disk, path));
  return saved && *saved == *rows;
}

Outcome KeepSafetyCopy(Workbench& bench, const fs::path& data_folder) {
  const bool sheet = bench.workspace.HasBytes(work_file::kSheet);
  return RowsAreSaved(bench) && !sheet ? Outcome(Done{}) : KeepSafetyCopyAnyway(bench, data_folder);
}

Outcome KeepSafetyCopyAnyway(Workbench& bench, const fs::path& data_folder) {
  Disk& disk = bench.workspace.outer_disk();
  const fs::path above = data_folder / kSafetyFolder;
  const fs::path folder = NewFolder(bench, above);
  const SystemKind kind = KindOfRows(bench);
  if (Outcome made = disk.MakeFolder(folder); !made) return made;
  for (const std::string_view name : work_file::kAll) {
    if (!bench.workspace.HasBytes(name)) continue;
    auto bytes = bench.workspace.Read(name);
    if (!bytes) return bytes.error();
    const fs::path copy = folder / NameInCopy(bench, name, kind);
    if (Outcome written = ReplaceFile(disk, copy, std::move(*bytes)); !written) return written;
    if (Outcome flushed = disk.Flush(copy); !flushed) return flushed;
  }
  RemoveOldCopies(disk, above);
  return Done{};
}

}  // namespace kalvo

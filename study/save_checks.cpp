#include "study/save_checks.h"

#include <array>

#include "study/companions.h"
#include "study/fluid_library.h"
#include "study/row_file.h"
#include "study/study_file_names.h"

namespace kalvo {

namespace fs = std::filesystem;

namespace {

bool IsProtected(const Disk& disk, const fs::path& path) {
  const auto status = disk.Status(path);
  return status && *status && !(*status)->is_folder && !(*status)->writable;
}

fs::path MainFileAt(const Disk& disk, const fs::path& path) {
  return BehindLink(disk, OwnFile(disk, path));
}

// A run that is saved brings its statistics, whether they are there yet or not.
bool WouldBeWritten(const Workspace& workspace, std::string_view work_name) {
  return work_name == work_file::kStatistics || workspace.Exists(work_name);
}

}  // namespace

bool ChangedOnDisk(const Workbench& bench) {
  const Study& study = bench.study;
  if (!study.saved_digest || study.study_path.empty()) return false;
  const Disk& disk = bench.workspace.outer_disk();
  const fs::path main = MainFileAt(disk, study.study_path);
  return disk.Exists(main) && FamilyDigest(disk, main) != *study.saved_digest;
}

std::optional<fs::path> ProtectedTarget(const Workspace& workspace, const fs::path& main) {
  const Disk& disk = workspace.outer_disk();
  const fs::path target = MainFileAt(disk, main);
  if (IsProtected(disk, target)) return target;
  const StudyExtensions& extensions = ExtensionsOf(KindOfName(target.string()));
  const std::array companions = {std::pair(work_file::kStatistics, extensions.statistics),
                                 std::pair(work_file::kWinter, extensions.winter),
                                 std::pair(work_file::kFluid, extensions.fluid)};
  for (const auto& [work_name, extension] : companions) {
    if (extension.empty() || !WouldBeWritten(workspace, work_name)) continue;
    fs::path companion = CompanionTarget(disk, target, extension);
    if (IsProtected(disk, companion)) return companion;
  }
  return std::nullopt;
}

std::optional<fs::path> TwinsCompanion(const Workspace& workspace, const fs::path& main) {
  const Disk& disk = workspace.outer_disk();
  const fs::path target = MainFileAt(disk, main);
  const bool open = KindOfName(target.string()) == SystemKind::kOpen;
  const StudyExtensions& others = ExtensionsOf(open ? SystemKind::kClosed : SystemKind::kOpen);
  if (!workspace.Exists(work_file::kFluid) ||
      !disk.Exists(CompanionTarget(disk, target, others.main))) {
    return std::nullopt;
  }
  fs::path shared = CompanionTarget(disk, target, others.fluid);
  const auto there = disk.Read(shared);
  const auto here = workspace.Read(work_file::kFluid);
  // Without a file the other study is one of the library's first fluid.
  const std::string assumed = EncodeRows<FluidRow>(std::array{WaterRow(workspace)});
  const bool missing = !there && there.error().IsMissing();
  const bool same = here && (missing ? *here == assumed : there && *there == *here);
  return same ? std::nullopt : std::optional(std::move(shared));
}

}  // namespace kalvo

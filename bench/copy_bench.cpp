// Studies copied from folder to folder on the machine's own disk, flushed, and a list of many.

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

#include "bench/building_network.h"
#include "bench/repeated.h"
#include "platform/drives/mounted_volumes.h"
#include "shell/copying/offered_studies.h"
#include "study/copying/copy_run.h"
#include "study/real_disk.h"
#include "study/row_file.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

// A folder for the time of a benchmark.
struct BenchFolder {
  explicit BenchFolder(const char* name) : path(fs::temp_directory_path() / name) {
    fs::remove_all(path);
    fs::create_directories(path);
  }
  BenchFolder(const BenchFolder&) = delete;
  BenchFolder& operator=(const BenchFolder&) = delete;
  ~BenchFolder() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }
  fs::path path;
};

// Studies of so many sections, each with quantities, winter and fluid.
std::vector<fs::path> PutStudies(const fs::path& folder, int count, int sections) {
  const std::string rows = EncodeRows<SectionRow>(BuildingStudy(sections));
  RealDisk disk;
  std::vector<fs::path> studies;
  for (int i = 0; i < count; ++i) {
    const std::string base = (folder / ("STUDY" + std::to_string(i))).string();
    const bool put = disk.Write(base + ".PCK", rows).ok() && disk.Write(base + ".WNT", rows).ok() &&
                     disk.Write(base + ".STC", std::string(265 * 20, ' ')).ok() &&
                     disk.Write(base + ".LQD", std::string(72, ' ')).ok();
    if (!put) throw std::runtime_error("no study");
    studies.emplace_back(base + ".PCK");
  }
  return studies;
}

class SilentUser : public CopyUser {
 public:
  Answer MayReplace(const CopyPlan& /*plan*/) override { return Answer::kNo; }
};

void CopyOf100(benchmark::State& state) {
  const BenchFolder source("kalvoflume_bench_copy_source");
  const std::vector<fs::path> studies = PutStudies(source.path, 100, 600);
  RealDisk disk;
  const MountedVolumes volumes;
  SilentUser user;
  for ([[maybe_unused]] auto step : state) {
    state.PauseTiming();
    std::optional<BenchFolder> target("kalvoflume_bench_copy_target");
    state.ResumeTiming();
    CopyRun run(disk, volumes, studies, target->path);
    if (!run.Prove() || run.LookForRoom() != RoomEnd::kEnough) throw std::runtime_error("no room");
    run.Make(user);
    if (!run.IsWhole()) throw std::runtime_error("not copied");
    state.PauseTiming();
    target.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(CopyOf100)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1)->Repetitions(5);

// What the window does with a folder: all names with their sizes, and all of them ticked.
void ListOf3000(benchmark::State& state) {
  const BenchFolder folder("kalvoflume_bench_copy_list");
  PutStudies(folder.path, 3000, 12);
  RealDisk disk;
  OfferedStudies offered;
  for ([[maybe_unused]] auto step : state) {
    offered.Read(disk, folder.path, SystemKind::kClosed);
    if (offered.Lines({',', '.'}).size() != 3000) throw std::runtime_error("not listed");
    benchmark::DoNotOptimize(offered);
  }
}
BENCHMARK(ListOf3000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3)->Repetitions(5);

// What is asked before the first byte of all these is copied.
void RoomOf3000(benchmark::State& state) {
  const BenchFolder folder("kalvoflume_bench_copy_list");
  const BenchFolder target("kalvoflume_bench_copy_target");
  const std::vector<fs::path> studies = PutStudies(folder.path, 3000, 12);
  RealDisk disk;
  const MountedVolumes volumes;
  for ([[maybe_unused]] auto step : state) {
    CopyRun run(disk, volumes, studies, target.path);
    if (!run.Prove() || run.LookForRoom() != RoomEnd::kEnough) throw std::runtime_error("no room");
  }
}
BENCHMARK(RoomOf3000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

}  // namespace
}  // namespace kalvo

// The print database of 999 sections, from rows to a file on the disk.

#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench/building_network.h"
#include "bench/repeated.h"
#include "platform/jet/print_shell.h"
#include "platform/print_files.h"
#include "study/real_disk.h"

namespace kalvo {
namespace {

void PrintDatabaseOf999(benchmark::State& state) {
  const std::vector<SectionRow> rows = BuildingStudy(999);
  const auto folder = std::filesystem::temp_directory_path();
  const auto shell = folder / "kalvoflume_bench_shell.MDB";
  const auto file = folder / "kalvoflume_bench_print.MDB";
  RealDisk disk;
  if (!disk.Write(shell, MakePrintShell(SectionPrintColumns()))) {
    throw std::runtime_error("no shell");
  }
  PrintFiles files(disk);
  for ([[maybe_unused]] auto step : state) {
    if (!files.Export(shell, PrintedSections(rows, "Ωμέγα"), file)) {
      throw std::runtime_error("no database");
    }
  }
  std::filesystem::remove(shell);
  std::filesystem::remove(file);
}
BENCHMARK(PrintDatabaseOf999)->Apply(RepeatMs);

}  // namespace
}  // namespace kalvo

#include "study/fluid_library.h"

#include <array>

namespace kalvo {

namespace {

constexpr int kWaterNumber = 1;

std::filesystem::path LibraryPath(const Workspace& workspace) {
  return workspace.library_folder() / work_file::kFluids;
}

RowFile<FluidRow> Library(Workspace& workspace) {
  return {workspace.outer_disk(), LibraryPath(workspace)};
}

RowReader<FluidRow> Library(const Workspace& workspace) {
  return {workspace.outer_disk(), LibraryPath(workspace)};
}

FluidRow MakeFluid(int number, std::string_view name, float temperature, float viscosity,
                   float density) {
  FluidRow fluid;
  fluid.row_number = static_cast<std::int16_t>(number);
  fluid.name = FixedText<50>::FromUtf8(name);
  fluid.mean_temperature = temperature;
  fluid.viscosity = viscosity;
  fluid.density = density;
  return fluid;
}

FluidRow BuiltInWater() {
  return MakeFluid(kWaterNumber, kWaterName, kComputed, kComputed, 1000.0F);
}

}  // namespace

Outcome CreateFluidLibrary(Workspace& workspace) {
  RowFile<FluidRow> library = Library(workspace);
  if (workspace.outer_disk().Exists(library.path())) {
    return Done{};
  }
  const std::array<FluidRow, 2> rows = {
      BuiltInWater(),
      MakeFluid(2, "Διάλυμα 25% Προπυλενικής Γλυκόλης σε Νερό", -6.0F, 0.00085F, 1260.0F)};
  return library.WriteAll(rows);
}

Result<std::vector<FluidRow>> ReadFluids(const Workspace& workspace) {
  return Library(workspace).ReadAll();
}

FluidRow WaterRow(const Workspace& workspace) {
  const auto fluids = ReadFluids(workspace);
  return fluids && !fluids->empty() ? fluids->front() : BuiltInWater();
}

Outcome SaveFluid(Workspace& workspace, const FluidRow& fluid) {
  if (fluid.row_number == kWaterNumber) {
    return Done{};
  }
  return Library(workspace).Write(fluid.row_number, fluid);
}

Outcome DeleteFluid(Workspace& workspace, int number) {
  const auto fluids = ReadFluids(workspace);
  if (!fluids) {
    return fluids.error();
  }
  if (number <= kWaterNumber || number > static_cast<int>(fluids->size())) {
    return Done{};
  }
  std::vector<FluidRow> rest;
  for (std::size_t i = 0; i < fluids->size(); ++i) {
    if (static_cast<int>(i) + 1 == number) {
      continue;
    }
    rest.push_back((*fluids)[i]);
    if (static_cast<int>(i) + 1 > number) {
      rest.back().row_number = static_cast<std::int16_t>(rest.size());
    }
  }
  const auto beside = workspace.library_folder() / work_file::kFluidsRebuilt;
  RowFile<FluidRow> rebuilt(workspace.outer_disk(), beside);
  if (Outcome written = rebuilt.WriteAll(rest); !written) {
    return written;
  }
  workspace.Pause();
  return workspace.outer_disk().Rename(beside, LibraryPath(workspace));
}

Outcome WriteStudyFluid(Workbench& bench, const FluidRow& fluid) {
  bench.study.Density = 0;
  bench.study.fluid_assumed = false;
  return bench.workspace.Rows<FluidRow>(work_file::kFluid).WriteAll(std::array{fluid});
}

Outcome LoadStudyFluid(Workbench& bench) {
  bench.study.Density = 0;
  if (!bench.workspace.Exists(work_file::kFluid)) {
    if (Outcome written = WriteStudyFluid(bench, WaterRow(bench.workspace)); !written) {
      return written;
    }
    bench.study.fluid_assumed = true;
  }
  const auto fluid = bench.workspace.Rows<FluidRow>(work_file::kFluid).ReadAll();
  if (!fluid) {
    return fluid.error();
  }
  if (!fluid->empty()) {
    bench.study.fluid_name = fluid->front().name.Utf8();
  }
  return Done{};
}

}  // namespace kalvo

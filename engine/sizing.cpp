#include "engine/sizing.h"

#include <algorithm>
#include <cmath>

#include "engine/pipe_stats.h"
#include "engine/row_store.h"
#include "study/calculation_boxes.h"
#include "study/fluid_row.h"

namespace kalvo {

namespace {

// The study's own fluid; nothing only when the file is missing.
std::optional<FluidRow> StudyFluid(const Workspace& workspace) {
  if (!workspace.Exists(work_file::kFluid)) {
    return std::nullopt;
  }
  return Require(workspace.Rows<FluidRow>(work_file::kFluid).Read(1));
}

constexpr float kWaterDensity = 1000.0F;

float DensityOf(const Study& study, const std::optional<FluidRow>& fluid) {
  if (study.Density != 0.0F) {
    return study.Density;
  }
  return fluid ? fluid->density : kWaterDensity;
}

// The first pipe whose area reaches the needed one; the largest when none does.
const PipeRow* ReachingPipe(const std::vector<PipeRow>& library, float area_m2) {
  const auto found = std::find_if(library.begin(), library.end(), [area_m2](const PipeRow& pipe) {
    return !(static_cast<float>(AreaM2(pipe)) < area_m2);
  });
  return found == library.end() ? nullptr : &*found;
}

// A flow that no pipe carries raises the design velocity by a product, not by a quotient: that is
// how the method is defined.
void RaiseMeanVel(Study& study, const PipeRow& largest, const SectionRow& row) {
  const float velocity = ToSingle(AreaM2(largest) * row.WaterFlow * 3600.0 * 1000.0);
  study.MeanVel = std::max(study.MeanVel, velocity);
}

const PipeRow& ChoosePipe(Study& study, const std::vector<PipeRow>& library,
                          const SectionRow& row) {
  const double area = Divide(row.WaterFlow / 3600.0, study.MeanVel) / 1000.0;
  if (const PipeRow* pipe = ReachingPipe(library, ToSingle(area))) {
    return *pipe;
  }
  RaiseMeanVel(study, library.back(), row);
  return library.back();
}

void SizeRow(Study& study, const PassConditions& pass, Method method, SectionRow& row) {
  const PipeRow& pipe = ChoosePipe(study, pass.library, row);
  row.NomiDiam = FixedText<15>::FromBytes(pipe.nominal_diameter.Trimmed());
  row.Area = static_cast<float>(AreaM2(pipe));
  row.InDiameter = pipe.inner_diameter;
  AddToPipeStats(study, pipe, row, AreaM2(pipe));
  FillHydraulics(row, pass.flow, ClassOf(pipe.material.Trimmed()), pipe.inner_diameter);
  SetMethod(row, method);
}

void RecalculateRow(Study& study, const PassConditions& pass, SectionRow& row) {
  const float diameter = std::fabs(row.InDiameter);
  const PipeRow& pipe = PipeOfDiameter(pass.library, diameter);
  AddToPipeStats(study, pipe, row, AreaM2(pipe));
  FillHydraulics(row, pass.flow, ClassOf(row.Material.Trimmed()), diameter);
}

// One pass over all rows: quantities anew, then `fill` for each, which is whole or as it was.
template <typename Fill>
void FillRows(Study& study, RowTable& table, const PassConditions& pass, Fill&& fill) {
  study.SectionCount = ToInt16(table.count());
  StartPipeStats(study, pass.library);
  for (int number = 1; number <= table.count(); ++number) {
    study.CurrentRow = static_cast<std::int16_t>(number);
    SectionRow row = table.At(number);
    AtRow(number, [&] { fill(row); });
    table.At(number) = row;
  }
}

}  // namespace

const PipeRow& PipeOfDiameter(const std::vector<PipeRow>& library, float diameter) {
  const auto found = std::find_if(library.begin(), library.end(), [diameter](const PipeRow& pipe) {
    return pipe.inner_diameter == diameter;
  });
  return found == library.end() ? library.back() : *found;
}

PassConditions ReadPassConditions(const Workspace& workspace, const Study& study,
                                  float temperature) {
  PassConditions pass;
  pass.library = Require(ReadPipeSystem(workspace, study.pipe_system_number));
  pass.flow.roughness = pass.library.front().roughness;
  const std::optional<FluidRow> fluid = StudyFluid(workspace);
  pass.flow.density = DensityOf(study, fluid);
  if (Trim(study.fluid_name) == kWaterName) {
    pass.flow.viscosity = WaterViscosity(temperature);
    return pass;
  }
  if (!fluid) {
    throw Fault(
        FileError{workspace.Path(work_file::kFluid), "Δεν υπάρχει το αρχείο του Ρέοντος Μέσου"});
  }
  pass.fluid_fits = fluid->mean_temperature == temperature;
  if (pass.fluid_fits) {
    pass.flow.viscosity = ToSingle(static_cast<double>(fluid->viscosity) / 1'000'000.0);
  }
  return pass;
}

std::optional<PassConditions> HoldPassConditions(const Workspace& workspace, Study& study,
                                                 float temperature) {
  PassConditions pass = ReadPassConditions(workspace, study, temperature);
  study.Density = pass.flow.density;
  return pass.fluid_fits ? std::optional(std::move(pass)) : std::nullopt;
}

void TellFluidMisfit(Workbench& bench) { bench.Ask(FluidMisfitBox()); }

std::optional<PassConditions> TakePassConditions(Workbench& bench) {
  auto pass = HoldPassConditions(bench.workspace, bench.study, bench.study.MeanTemp);
  if (!pass) {
    TellFluidMisfit(bench);
  }
  return pass;
}

void SizePipes(Study& study, RowTable& table, const PassConditions& pass, Method method) {
  FillRows(study, table, pass, [&](SectionRow& row) { SizeRow(study, pass, method, row); });
}

void RecalculateRows(Study& study, RowTable& table, const PassConditions& pass) {
  FillRows(study, table, pass, [&](SectionRow& row) { RecalculateRow(study, pass, row); });
}

bool KeepsDiameter(const std::vector<PipeRow>& library, const SectionRow& row) {
  return std::ranges::any_of(library, [&row](const PipeRow& pipe) {
    return pipe.inner_diameter == std::fabs(row.InDiameter) &&
           pipe.nominal_diameter.Trimmed() == row.NomiDiam.Trimmed();
  });
}

void SizeMissingPipes(Study& study, RowTable& table, const PassConditions& pass, Method method) {
  FillRows(study, table, pass, [&](SectionRow& row) {
    if (!KeepsDiameter(pass.library, row)) {
      SizeRow(study, pass, method, row);
      return;
    }
    RecalculateRow(study, pass, row);
    SetMethod(row, method);
  });
}

void SizePipes(Workbench& bench, Method method) {
  if (const auto pass = TakePassConditions(bench)) {
    RowStore store(bench.workspace);
    store.SaveAfter([&] { SizePipes(bench.study, store, *pass, method); });
  }
}

void RecalculateRows(Workbench& bench) {
  if (const auto pass = TakePassConditions(bench)) {
    RowStore store(bench.workspace);
    store.SaveAfter([&] { RecalculateRows(bench.study, store, *pass); });
  }
}

std::vector<StatRow> CountQuantities(const std::vector<PipeRow>& library,
                                     const std::vector<SectionRow>& rows) {
  Study counted;
  StartPipeStats(counted, library);
  for (const SectionRow& row : rows) {
    const PipeRow& pipe = PipeOfDiameter(library, std::fabs(row.InDiameter));
    AddToPipeStats(counted, pipe, row, AreaM2(pipe));
  }
  return std::move(counted.PipeStats);
}

void RecountQuantities(Workbench& bench) {
  const std::vector<PipeRow> library =
      Require(ReadPipeSystem(bench.workspace, bench.study.pipe_system_number));
  bench.study.PipeStats = CountQuantities(library, ReadRows(bench.workspace).rows());
  WriteStatistics(bench);
}

}  // namespace kalvo

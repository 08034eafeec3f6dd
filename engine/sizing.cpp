#include "engine/sizing.h"

#include <algorithm>
#include <cmath>

#include "engine/pipe_stats.h"
#include "engine/row_store.h"
#include "study/fluid_row.h"

namespace kalvo {

namespace {

Box TemperatureBox() {
  return {"...!! ΠΡΟΣΟΧΗ !!...",
          {"... Η τιμή του Κινηματικού Ιξώδους που έχετε δώσει ...",
           "... είναι υπό Μέση θερμοκρασία Ρέοντος Μέσου ...",
           "... που ΔΕΝ ταυτίζεται με την επιλεγείσα Μέση Θερμοκρασία για τούς Υπολογισμούς !...",
           " ", "                                 ...!! ΔΙΟΡΘΩΣΤΕ ΑΝΑΛΟΓΩΣ !!..."},
          16};
}

// The study's own fluid; nothing only when the file is missing.
std::optional<FluidRow> StudyFluid(const Workbench& bench) {
  if (!bench.workspace.Exists(work_file::kFluid)) {
    return std::nullopt;
  }
  return Require(bench.workspace.Rows<FluidRow>(work_file::kFluid).Read(1));
}

constexpr float kWaterDensity = 1000.0F;

void HoldDensity(Study& study, const std::optional<FluidRow>& fluid) {
  if (study.Density == 0.0F) {
    study.Density = fluid ? fluid->density : kWaterDensity;
  }
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

void SizeRow(Study& study, const PassConditions& pass, int method, SectionRow& row) {
  const PipeRow& pipe = ChoosePipe(study, pass.library, row);
  row.NomiDiam = FixedText<15>::FromBytes(pipe.nominal_diameter.Trimmed());
  row.Area = static_cast<float>(AreaM2(pipe));
  row.InDiameter = pipe.inner_diameter;
  AddToPipeStats(study, pipe, row, AreaM2(pipe));
  FillHydraulics(row, pass.flow, ClassOf(pipe.material.Trimmed()), pipe.inner_diameter);
  row.INILAMDA = static_cast<float>(method);
}

const PipeRow& PipeOfDiameter(const std::vector<PipeRow>& library, float diameter) {
  const auto found = std::find_if(library.begin(), library.end(), [diameter](const PipeRow& pipe) {
    return pipe.inner_diameter == diameter;
  });
  return found == library.end() ? library.back() : *found;
}

void RecalculateRow(Study& study, const PassConditions& pass, SectionRow& row) {
  const float diameter = std::fabs(row.InDiameter);
  const PipeRow& pipe = PipeOfDiameter(pass.library, diameter);
  AddToPipeStats(study, pipe, row, AreaM2(pipe));
  FillHydraulics(row, pass.flow, ClassOf(row.Material.Trimmed()), diameter);
}

// One pass over all rows: quantities anew, then `fill` for each, written only when it is whole.
template <typename Fill>
void FillRows(Workbench& bench, const PassConditions& pass, std::string_view rows, Fill&& fill) {
  Study& study = bench.study;
  RowStore store(bench.workspace, rows);
  study.SectionCount = ToInt16(store.count());
  StartPipeStats(study, pass.library);
  store.SaveAfter([&] {
    for (int number = 1; number <= store.count(); ++number) {
      study.CurrentRow = static_cast<std::int16_t>(number);
      SectionRow row = store.At(number);
      AtRow(number, [&] { fill(row); });
      store.At(number) = row;
    }
  });
}

}  // namespace

std::optional<PassConditions> LoadPassConditions(Workbench& bench, float temperature) {
  Study& study = bench.study;
  PassConditions pass;
  pass.library = Require(ReadPipeSystem(bench.workspace, study.pipe_system_number));
  pass.flow.roughness = pass.library.front().roughness;
  const std::optional<FluidRow> fluid = StudyFluid(bench);
  HoldDensity(study, fluid);
  pass.flow.density = study.Density;
  if (Trim(study.fluid_name) == kWaterName) {
    pass.flow.viscosity = WaterViscosity(temperature);
    return pass;
  }
  if (!fluid) {
    throw Fault(FileError{bench.workspace.Path(work_file::kFluid),
                          "Δεν υπάρχει το αρχείο του Ρέοντος Μέσου"});
  }
  if (fluid->mean_temperature != temperature) {
    bench.Ask(TemperatureBox());
    study.CalcStatus = calc_status::kViscosity;
    return std::nullopt;
  }
  pass.flow.viscosity = ToSingle(static_cast<double>(fluid->viscosity) / 1'000'000.0);
  return pass;
}

std::optional<PassConditions> LoadPassConditions(Workbench& bench) {
  return LoadPassConditions(bench, bench.study.MeanTemp);
}

void SizePipes(Workbench& bench, int method) {
  const auto pass = LoadPassConditions(bench);
  if (!pass) {
    return;
  }
  FillRows(bench, *pass, work_file::kRows,
           [&](SectionRow& row) { SizeRow(bench.study, *pass, method, row); });
}

void RecalculateRows(Workbench& bench) {
  RecalculateRows(bench, bench.study.MeanTemp, work_file::kRows);
}

void RecalculateRows(Workbench& bench, float temperature, std::string_view rows) {
  const auto pass = LoadPassConditions(bench, temperature);
  if (!pass) {
    return;
  }
  FillRows(bench, *pass, rows, [&](SectionRow& row) { RecalculateRow(bench.study, *pass, row); });
}

void RecountQuantities(Workbench& bench) {
  const std::vector<PipeRow> library =
      Require(ReadPipeSystem(bench.workspace, bench.study.pipe_system_number));
  const RowStore store(bench.workspace);
  StartPipeStats(bench.study, library);
  for (const SectionRow& row : store.rows()) {
    const PipeRow& pipe = PipeOfDiameter(library, std::fabs(row.InDiameter));
    AddToPipeStats(bench.study, pipe, row, AreaM2(pipe));
  }
  WriteStatistics(bench);
}

}  // namespace kalvo

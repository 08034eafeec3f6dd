// Velocity, Reynolds number, friction, equivalent lengths and drop of one row.

#include <cmath>
#include <vector>

#include "bench/bench_program.h"
#include "bench/repeated.h"
#include "engine/hydraulics.h"

namespace kalvo {
namespace {

// The rows of a calculated network one after the other, so that diameters, flows and fittings are
// as mixed as in a real study.
void Hydraulics(benchmark::State& state) {
  const StudyFiles study(SystemKind::kClosed, 999);
  const PipeList pipes = DeliveredPipes();
  BenchProgram program(pipes);
  program.Load(study.path());
  program.Calculate(Method::kFlowOnly);
  std::vector<SectionRow> rows = program.Rows();
  const FlowConditions water = {WaterViscosity(rows.front().MeanTemp), 1000.0F, 0.045F};
  std::size_t next = 0;
  for ([[maybe_unused]] auto step : state) {
    SectionRow& row = rows[next];
    FillHydraulics(row, water, MaterialClass::kSteelPipe, std::fabs(row.InDiameter));
    benchmark::DoNotOptimize(row.TotalDrop);
    next = next + 1 == rows.size() ? 0 : next + 1;
  }
}
BENCHMARK(Hydraulics)->Apply(RepeatNs);

}  // namespace
}  // namespace kalvo

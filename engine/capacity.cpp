#include "engine/capacity.h"

#include "engine/row_store.h"
#include "study/message_codes.h"

namespace kalvo {

namespace {

constexpr double kFlowDivisor = 11.309724426269531;  // 3.6 π
constexpr double kVelocityReserve = 1.03;

}  // namespace

bool CheckPipeCapacity(Workbench& bench) {
  const Study& study = bench.study;
  const SectionRow first = Require(bench.workspace.Rows().Read(1));
  const auto library = Require(ReadPipeSystem(bench.workspace, study.pipe_system_number));
  const double flow = study.TotalFlowM3h != 0.0F ? study.TotalFlowM3h : first.WaterFlow;
  const double diameter = library.back().inner_diameter;
  const double velocity = Divide(4.0 / kFlowDivisor * flow, diameter * diameter);
  if (!(kVelocityReserve * study.MeanVel < velocity)) {
    return true;
  }
  return bench.Show(message::kPipesDoNotSuffice) != Answer::kNo;
}

}  // namespace kalvo

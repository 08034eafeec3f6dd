#include "engine/explain.h"

#include <cmath>

#include "engine/step_down.h"
#include "study/fault.h"

namespace kalvo {

namespace {

void FillFlow(DropExplanation& result, const FlowConditions& flow) {
  const float velocity = VelocityOf(result.flow_lh, result.bore_mm);
  const float reynolds = ReynoldsOf(result.bore_mm, velocity, flow.viscosity);
  const float lamda = FrictionFactor(flow.roughness, result.bore_mm, reynolds);
  result.velocity = velocity;
  result.viscosity_cst = flow.viscosity * 1e6;
  result.reynolds = reynolds;
  result.roughness_mm = flow.roughness;
  result.lamda = lamda;
  result.density = flow.density;
  result.friction_rate = FrictionRateOf(lamda, flow.density, velocity, result.bore_mm);
}

void FillLengths(DropExplanation& result, const ExplainInput& input) {
  SectionRow row = input.row;
  row.Lamda = static_cast<float>(result.lamda);
  if (input.stepped_rate) {
    row.Auxi = kSteppedDown;
  }
  result.pipe_length_m = row.Length;
  result.sum_of_zeta = SumOfZeta(row, input.material, result.bore_mm);
  result.lengths = LengthsOf(row, input.material, result.bore_mm,
                             input.stepped_rate.value_or(result.friction_rate));
  const FittingCoefficients& pipe = CoefficientsFor(input.material, result.bore_mm);
  for (const Fitting& kind : kFittings) {
    const double count = NumberOf(row, kind.count);
    if (count != 0.0) {
      const double zeta = ZetaOf(kind, pipe);
      result.fittings.push_back(
          {&kind, count, zeta, LengthOfZeta(count * zeta, result.bore_mm, result.lamda)});
    }
  }
}

void FillDrop(DropExplanation& result, double emitter) {
  const double rate = result.friction_rate;
  const EquivalentLengths& lengths = result.lengths;
  result.own_drop = rate * lengths.Sum();
  // The flow pressure is stored in m w.g. and added as it stands: that is how the method is
  // defined. The pressures take it in mm w.g. besides.
  result.computed_drop = TotalDropOf(rate, lengths, emitter);
  result.shares = {rate * result.pipe_length_m,
                   rate * (lengths.pipe_and_fittings - result.pipe_length_m),
                   rate * (lengths.other_drop + lengths.other_length),
                   rate * lengths.plant,
                   result.own_drop * (kDropMargin - 1.0),
                   emitter};
}

}  // namespace

DropExplanation ExplainDrop(const ExplainInput& input) {
  DropExplanation result;
  result.kind = input.kind;
  result.flow_lh = input.row.WaterFlow;
  result.bore_mm = std::fabs(static_cast<double>(input.row.InDiameter));
  FillFlow(result, input.conditions);
  FillLengths(result, input);
  FillDrop(result, input.row.SomaDrop);
  result.stored_drop = input.row.TotalDrop;
  result.stepped_down = input.stepped_rate.has_value();
  return result;
}

DropExplanation ExplainRow(SystemKind kind, const SectionRow& row, const PassConditions& pass) {
  const MaterialClass material = ClassOf(pass.library.front().material.Trimmed());
  DropExplanation plain = ExplainDrop({kind, row, pass.flow, material, std::nullopt});
  if (const MaterialClass own = ClassOf(row.Material.Trimmed());
      own != material && !plain.Agrees()) {
    // A re-run on fixed diameters goes by the row's own word.
    if (DropExplanation by_row = ExplainDrop({kind, row, pass.flow, own, std::nullopt});
        by_row.Agrees()) {
      return by_row;
    }
  }
  if (plain.Agrees() || MethodOf(row) != Method::kFlowAndPressure) {
    return plain;
  }
  for (std::size_t i = 1; i < pass.library.size(); ++i) {
    if (pass.library[i - 1].nominal_diameter.Trimmed() != row.NomiDiam.Trimmed()) {
      continue;
    }
    SectionRow before = row;
    before.InDiameter = pass.library[i].inner_diameter;
    FillHydraulics(before, pass.flow, material, before.InDiameter);
    DropExplanation stepped = ExplainDrop({kind, row, pass.flow, material, before.FrictionRate});
    return stepped.Agrees() ? stepped : plain;
  }
  return plain;
}

}  // namespace kalvo

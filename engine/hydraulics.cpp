#include "engine/hydraulics.h"

#include <array>
#include <cmath>

#include "study/fault.h"
#include "study/rounding.h"

namespace kalvo {

namespace {

// m²/s at 0, 10, ... 100 °C.
constexpr std::array<double, 11> kWaterTable = {1.79e-6, 1.31e-6, 1.01e-6, 8.1e-7, 6.6e-7, 5.6e-7,
                                                4.8e-7,  4.2e-7,  3.7e-7,  3.3e-7, 2.9e-7};

double TablePoint(double temperature) {
  const double index = temperature / 10.0;
  if (!(index >= 0.0 && index <= 10.0)) {
    return 0.0;
  }
  return kWaterTable[static_cast<std::size_t>(index)];
}

// The multiple of ten an interpolation starts from. A whole temperature keeps its sign in the
// remainder, so that -5 starts from 0; any other rounds down.
double LowerPoint(double temperature) {
  return temperature == Int(temperature) ? temperature - std::fmod(temperature, 10.0)
                                         : Int(temperature / 10.0) * 10.0;
}

}  // namespace

float WaterViscosity(float temperature) {
  const double t = temperature;
  const double lower = LowerPoint(t);
  const double upper = lower + 10.0;
  const double at_lower = TablePoint(lower);
  const double at_upper = TablePoint(upper);
  return ToSingle(at_upper - (upper - t) * (at_upper - at_lower) / (upper - lower));
}

float VelocityOf(double flow_lh, double diameter_mm) {
  const double factor = 4.0 / (static_cast<double>(kPi) * 3.6);
  return ToSingle(RoundTo(Divide(factor * flow_lh, diameter_mm * diameter_mm), 2));
}

float ReynoldsOf(double diameter_mm, double velocity, double viscosity) {
  return ToSingle(Int(Divide(diameter_mm * velocity, viscosity * 1000.0)));
}

float FrictionFactor(double roughness_mm, double diameter_mm, double reynolds) {
  const double wall = Divide(roughness_mm, diameter_mm) / 3.71;
  float x = 0;
  for (int step = 0; step < kFrictionMostSteps; ++step) {
    const double flow = Divide(2.51 * std::fabs(static_cast<double>(x)), reynolds);
    const float next = ToSingle(-2.0 * Log10(wall + flow));
    if (kFrictionTolerance > std::fabs(x - next)) {
      const double inverse = Divide(1.0, next);
      return ToSingle(inverse * inverse);
    }
    x = next;
  }
  throw Fault(FaultCode::kBadArgument, "friction factor does not settle");
}

float FrictionRateOf(double lamda, double density, double velocity, double diameter_mm) {
  const double rate =
      Divide(1000.0 * lamda * density * (velocity * velocity), 2.0 * diameter_mm * kGravity);
  return ToSingle(RoundTo(rate, 3));
}

double LengthOfZeta(double zeta, double diameter_mm, double lamda) {
  return Divide(zeta * diameter_mm, lamda * 1000.0);
}

EquivalentLengths LengthsOf(const SectionRow& row, MaterialClass material, double zeta_diameter_mm,
                            double friction_rate) {
  const double diameter = std::fabs(static_cast<double>(row.InDiameter));
  const double zeta = SumOfZeta(row, material, zeta_diameter_mm);
  EquivalentLengths lengths;
  lengths.pipe_and_fittings = row.Length + LengthOfZeta(zeta, diameter, row.Lamda);
  lengths.other_drop = Divide(row.OtherDrop_mm, friction_rate);
  lengths.other_length = row.OtherDrop_m;
  lengths.plant = LengthOfZeta(kZetaPlant * row.Auxi, diameter, row.Lamda);
  return lengths;
}

float TotalDropOf(double friction_rate, const EquivalentLengths& lengths, double emitter_drop) {
  return ToSingle(RoundTo(friction_rate * kDropMargin * lengths.Sum() + emitter_drop, 2));
}

void FillHydraulics(SectionRow& row, const FlowConditions& conditions, MaterialClass material,
                    double zeta_diameter_mm) {
  const double diameter = std::fabs(static_cast<double>(row.InDiameter));
  row.Velocity = VelocityOf(row.WaterFlow, diameter);
  row.Reynolds = ReynoldsOf(diameter, row.Velocity, conditions.viscosity);
  row.Lamda = FrictionFactor(conditions.roughness, diameter, row.Reynolds);
  row.FrictionRate = FrictionRateOf(row.Lamda, conditions.density, row.Velocity, diameter);
  const EquivalentLengths lengths = LengthsOf(row, material, zeta_diameter_mm, row.FrictionRate);
  row.TotalDrop = TotalDropOf(row.FrictionRate, lengths, row.SomaDrop);
}

}  // namespace kalvo

#pragma once

#include "engine/fittings.h"
#include "study/section_row.h"

namespace kalvo {

/// π of all flow formulas, a 32-bit value.
constexpr float kPi = 3.141593F;
constexpr double kGravity = 9.81;
/// Safety margin on all of a section's own loss.
constexpr double kDropMargin = 1.1;
/// A friction factor's 1/√λ has settled when it moves by less than this, in 32 bits.
constexpr float kFrictionTolerance = 0.0001F;
constexpr int kFrictionMostSteps = 1000;

/// Fluid and pipe wall, fixed for a pass.
struct FlowConditions {
  float viscosity = 0;  ///< kinematic, m²/s
  float density = 0;    ///< kg/m³
  float roughness = 0;  ///< absolute, mm
};

/// Kinematic viscosity of water, m²/s, at `temperature` °C: linear between the points of a table by
/// 10 °C from 0 to 100; a point outside it counts as 0. Values: kinematic viscosity of water at
/// 1 bar to two or three digits, as in common engineering tables.
float WaterViscosity(float temperature);

/// Mean velocity, m/s, two decimals, of `flow_lh` l/h in a bore of `diameter_mm`.
/// Faults: 11 and 6 for a diameter of 0.
float VelocityOf(double flow_lh, double diameter_mm);

/// Reynolds number, truncated. Faults: 11 and 6 for a viscosity of 0.
float ReynoldsOf(double diameter_mm, double velocity, double viscosity);

/// Darcy friction factor by Colebrook and White: 1/√λ = -2 log10(k/D/3.71 + 2.51/(Re √λ)),
/// iterated on x = 1/√λ from 0 in 32-bit steps.
/// Faults: 6 for Reynolds 0, 5 for roughness 0 or an iteration that does not settle.
float FrictionFactor(double roughness_mm, double diameter_mm, double reynolds);

/// Friction loss, mm w.g. per metre, three decimals: 1000 λ ρ v² / (2 D 9.81), D in mm.
float FrictionRateOf(double lamda, double density, double velocity, double diameter_mm);

/// Metres of straight pipe that stand for a section's losses.
struct EquivalentLengths {
  double pipe_and_fittings = 0;  ///< L1 = length + Σζ D / (1000 λ)
  double other_drop = 0;         ///< L2 = other drop [mm w.g.] / friction rate
  double other_length = 0;       ///< L3, as entered
  double plant = 0;              ///< L4 = 2.5 plant marker D / (1000 λ)

  [[nodiscard]] double Sum() const { return pipe_and_fittings + other_drop + other_length + plant; }
};

/// Length of pipe with the same loss as `zeta`, m. Faults: 11 and 6 for λ 0.
double LengthOfZeta(double zeta, double diameter_mm, double lamda);

/// Equivalent lengths of the row from its `Lamda`; `friction_rate` divides the other drop.
EquivalentLengths LengthsOf(const SectionRow& row, MaterialClass material, double zeta_diameter_mm,
                            double friction_rate);

/// Drop of a section, mm w.g., two decimals: rate × 1.1 × Σ lengths + emitter.
float TotalDropOf(double friction_rate, const EquivalentLengths& lengths, double emitter_drop);

/// Fills `Velocity`, `Reynolds`, `Lamda`, `FrictionRate` and `TotalDrop` of the row from its flow
/// and the absolute value of its `InDiameter`. `zeta_diameter_mm`: bore that picks the fittings'
/// band. Faults: as the formulas above; the row is then partly filled and must not be stored.
void FillHydraulics(SectionRow& row, const FlowConditions& conditions, MaterialClass material,
                    double zeta_diameter_mm);

}  // namespace kalvo

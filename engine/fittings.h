#pragma once

#include <string_view>

#include "study/section_row.h"

namespace kalvo {

/// The two material classes of the fittings' loss coefficients.
enum class MaterialClass { kSteelPipe, kOtherPipe };

/// kSteelPipe when the trimmed word is "STEEL".
MaterialClass ClassOf(std::string_view material);

/// Loss coefficients ζ of the fittings whose value depends on the pipe; per piece, no unit.
struct FittingCoefficients {
  double AnglePOP = 0;
  double Elbow90 = 0;
  double GateValve = 0;
  double StrSwitch = 0;
  double AngSwitch = 0;
};

/// ζ that hold for every pipe, per piece.
constexpr double kZetaDiaTee = 1.5;
constexpr double kZetaDieTee = 1.0;
constexpr double kZetaAntiTee = 3.0;
constexpr double kZetaSymboTee = 1.35;
constexpr double kZetaCheckValve = 4.0;
/// ζ of one unit of the plant marker.
constexpr double kZetaPlant = 2.5;

/// Coefficients for a pipe of `diameter_mm` inner diameter; a diameter equal to a band's limit
/// belongs to the next band.
const FittingCoefficients& CoefficientsFor(MaterialClass material, double diameter_mm);

/// Σζ of the row's fittings in a pipe of that class and diameter, the plant left out.
double SumOfZeta(const SectionRow& row, MaterialClass material, double diameter_mm);

}  // namespace kalvo

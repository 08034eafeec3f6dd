#include "engine/fittings.h"

#include <array>
#include <limits>

#include "study/pipe_list.h"

namespace kalvo {

namespace {

struct Band {
  double below_mm;
  FittingCoefficients zeta;
};

using Bands = std::array<Band, 5>;

constexpr double kNoLimit = std::numeric_limits<double>::infinity();

constexpr Bands kSteelBands = {{
    {19, {2.0, 1.5, 1.0, 12, 9}},
    {30, {1.5, 1.0, 0.5, 9, 7}},
    {43, {1.0, 0.5, 0.5, 7, 5}},
    {100, {1.0, 0.5, 0.5, 3, 1}},
    {kNoLimit, {0.5, 0.5, 0.5, 1, 0.5}},
}};

constexpr Bands kNotSteelBands = {{
    {15, {2.0, 1.5, 1.0, 12, 9}},
    {22, {1.5, 1.0, 0.5, 9, 7}},
    {35, {1.0, 0.5, 0.5, 7, 5}},
    {54, {1.0, 0.5, 0.5, 7, 5}},
    {kNoLimit, {0.5, 0.5, 0.5, 1, 0.5}},
}};

}  // namespace

MaterialClass ClassOf(std::string_view material) {
  return Trim(material) == kSteelWord ? MaterialClass::kSteelPipe : MaterialClass::kOtherPipe;
}

const FittingCoefficients& CoefficientsFor(MaterialClass material, double diameter_mm) {
  const Bands& bands = material == MaterialClass::kSteelPipe ? kSteelBands : kNotSteelBands;
  for (const Band& band : bands) {
    if (diameter_mm < band.below_mm) {
      return band.zeta;
    }
  }
  return bands.back().zeta;
}

double SumOfZeta(const SectionRow& row, MaterialClass material, double diameter_mm) {
  const FittingCoefficients& zeta = CoefficientsFor(material, diameter_mm);
  return row.AnglePOP * zeta.AnglePOP + row.Elbow90 * zeta.Elbow90 +
         row.GateValve * zeta.GateValve + row.StrSwitch * zeta.StrSwitch +
         row.AngSwitch * zeta.AngSwitch + kZetaDiaTee * row.DiaTee + kZetaDieTee * row.DieTee +
         kZetaAntiTee * row.AntiTee + kZetaSymboTee * row.SymboTee +
         kZetaCheckValve * row.CheckValve;
}

}  // namespace kalvo

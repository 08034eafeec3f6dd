#include "engine/fittings.h"

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

double ZetaOf(const Fitting& fitting, const FittingCoefficients& pipe) {
  if (const double* fixed = std::get_if<double>(&fitting.zeta)) {
    return *fixed;
  }
  return pipe.*std::get<double FittingCoefficients::*>(fitting.zeta);
}

double SumOfZeta(const SectionRow& row, MaterialClass material, double diameter_mm) {
  const FittingCoefficients& pipe = CoefficientsFor(material, diameter_mm);
  double sum = 0;
  for (const Fitting& fitting : kFittings) {
    sum += NumberOf(row, fitting.count) * ZetaOf(fitting, pipe);
  }
  return sum;
}

}  // namespace kalvo

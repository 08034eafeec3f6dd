#include "results/quantities.h"

namespace kalvo {

double WaterContent(std::span<const StatRow> pipes) {
  constexpr double kPiOfContent = 3.14159;
  double litres = 0;
  for (const StatRow& pipe : pipes) {
    const double diameter_m = pipe.InDiameter / 1000.0;
    litres += diameter_m * diameter_m * kPiOfContent / 4.0 * 1000.0 * pipe.Length;
  }
  return litres;
}

}  // namespace kalvo

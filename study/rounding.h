#pragma once

#include <cmath>

namespace kalvo {

/// floor(value * 10^decimals + 0.5) / 10^decimals, the one rounding of stored results.
inline double RoundTo(double value, int decimals) {
  double scale = 1.0;
  for (int i = 0; i < decimals; ++i) {
    scale *= 10.0;
  }
  return std::floor(value * scale + 0.5) / scale;
}

/// The largest whole number not above `value`.
inline double Int(double value) { return std::floor(value); }

}  // namespace kalvo

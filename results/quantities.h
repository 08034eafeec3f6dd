#pragma once

#include <span>

#include "study/stat_row.h"

namespace kalvo {

/// Water content of a closed network, litres: Σ ((d/1000)² × 3.14159 / 4) × 1000 × L over the
/// pipe sizes, d in mm and L in m.
double WaterContent(std::span<const StatRow> pipes);

}  // namespace kalvo

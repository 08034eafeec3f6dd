#pragma once

namespace kalvo {

/// Pascal in a conventional millimetre of water (ISO 80000-4: 1 mmH2O = 9.80665 Pa).
constexpr double kPascalInMmWg = 9.80665;

/// Pa of a pressure in mm w.g., and Pa/m of a friction rate in mm w.g./m.
constexpr double PascalOf(double mm_wg) { return mm_wg * kPascalInMmWg; }
constexpr double KiloPascalOf(double mm_wg) { return mm_wg * kPascalInMmWg / 1000.0; }
/// kPa of a pressure in m w.g.
constexpr double KiloPascalOfMetres(double m_wg) { return m_wg * kPascalInMmWg; }

}  // namespace kalvo

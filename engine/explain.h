#pragma once

#include <optional>
#include <vector>

#include "engine/sizing.h"

namespace kalvo {

/// Fittings of one kind in a section: how many, ζ of each, and the pipe length they stand for, m.
struct FittingShare {
  const Fitting* kind;
  double count = 0;
  double zeta = 0;
  double length_m = 0;
};

/// What each part of a section has in its drop, mm w.g.
struct DropParts {
  double pipe = 0;
  double fittings = 0;
  double others = 0;  ///< other drop and other length, as entered
  double plant = 0;   ///< in a section taken down by balancing: the term that fills its place
  double margin = 0;
  double emitter = 0;
};

/// How a section's drop came about: the values on the way from its flow to its drop.
struct DropExplanation {
  SystemKind kind = SystemKind::kNone;
  double flow_lh = 0;
  double bore_mm = 0;
  double velocity = 0;       ///< m/s
  double viscosity_cst = 0;  ///< kinematic, mm²/s
  double reynolds = 0;
  double roughness_mm = 0;
  double lamda = 0;
  double density = 0;        ///< kg/m³
  double friction_rate = 0;  ///< R, mm w.g./m
  double pipe_length_m = 0;
  double sum_of_zeta = 0;
  std::vector<FittingShare> fittings;  ///< the kinds that the section has
  EquivalentLengths lengths;
  double own_drop = 0;  ///< R × lengths, mm w.g.
  DropParts shares;
  float computed_drop = 0;  ///< mm w.g., by these values
  float stored_drop = 0;    ///< mm w.g., in the row
  bool stepped_down = false;

  /// False when the row holds another drop than its values lead to: it was changed since.
  /// Balancing puts old values back through their text, which may cost the last digits.
  [[nodiscard]] bool Agrees() const {
    return computed_drop == stored_drop ||
           static_cast<float>(ThroughText(computed_drop)) == stored_drop;
  }

  /// `share` as a part of the whole drop, nothing when that is not above 0.
  [[nodiscard]] std::optional<double> FractionOf(double share) const {
    return computed_drop > 0.0F ? std::optional(share / computed_drop) : std::nullopt;
  }
};

/// What the explanation of a row starts from. `stepped_rate`: friction rate on the pipe the section
/// had before balancing took it down, mm w.g./m; nothing when it still has the pipe of its sizing.
struct ExplainInput {
  SystemKind kind;
  const SectionRow& row;
  FlowConditions conditions;
  MaterialClass material = MaterialClass::kSteelPipe;
  std::optional<double> stepped_rate;
};

/// Follows a calculated row from flow to drop by the formulas of engine/hydraulics.h.
/// Faults: as those formulas, for a row that was never calculated.
DropExplanation ExplainDrop(const ExplainInput& input);

/// The same for a row of a study of that kind: of a balanced row that does not follow from its
/// values alone the step down from the next larger pipe is tried. Faults: as ExplainDrop().
DropExplanation ExplainRow(SystemKind kind, const SectionRow& row, const PassConditions& pass);

}  // namespace kalvo

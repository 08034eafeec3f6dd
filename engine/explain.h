#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/sizing.h"

namespace kalvo {

/// One step on the way from a section's flow to its drop: its symbol ("Q", "Re", "Δp"; empty where
/// there is none), what is found, by which formula, its value and unit, and the decimals that are
/// fit for it. Texts are Greek.
struct ExplainStep {
  std::string symbol;
  std::string what;
  std::string formula;
  double value = 0;
  std::string unit;
  int decimals = 0;
};

/// Fittings of one kind in a section: how many, ζ of each, and the pipe length they stand for, m.
struct FittingShare {
  std::string what;
  double count = 0;
  double zeta = 0;
  double length_m = 0;
};

/// What a part of the section has in its drop.
struct DropShare {
  std::string what;
  double drop = 0;                 ///< mm w.g.
  std::optional<double> fraction;  ///< of the whole drop, nothing when that is not above 0
};

/// How a section's drop came about.
struct DropExplanation {
  std::vector<ExplainStep> steps;
  std::vector<FittingShare> fittings;
  std::vector<DropShare> shares;
  float computed_drop = 0;  ///< mm w.g., by the steps
  float stored_drop = 0;    ///< mm w.g., in the row
  bool stepped_down = false;

  /// False when the row holds another drop than its values lead to: it was changed since.
  /// Balancing puts old values back through their text, which may cost the last digits.
  [[nodiscard]] bool Agrees() const {
    return computed_drop == stored_drop ||
           static_cast<float>(ThroughText(computed_drop)) == stored_drop;
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

#pragma once

#include <optional>

#include "engine/explain.h"
#include "study/workbench.h"

namespace kalvo {

/// Explains drops of the open study's rows. It asks nothing, and the study stays as it is.
class DropExplainer {
 public:
  DropExplainer() = default;
  /// With the study's pipe system and its fluid at `temperature` °C.
  DropExplainer(const Workbench& bench, float temperature);

  /// Nothing when the row does not lead to a drop, or pipes or fluid are missing.
  [[nodiscard]] std::optional<DropExplanation> Explain(const SectionRow& row) const;

 private:
  SystemKind kind_ = SystemKind::kNone;
  std::optional<PassConditions> pass_;
};

}  // namespace kalvo

#pragma once

#include <optional>

#include "engine/explain.h"
#include "form/form.h"
#include "form/pictures.h"

namespace kalvo {

/// Why a section has the drop it has, step by step, beside the results.
class DropPanel {
 public:
  explicit DropPanel(Form& form);

  /// `outlet_spare`: how far the pump reaches above the need of the outlet that the row ends in,
  /// mm w.g.; nothing when it ends in none.
  void Show(const SectionRow& row, const std::optional<DropExplanation>& explanation,
            std::optional<double> outlet_spare, Separators separators);
  void Clear();

  Label LblSection;
  Label LblSectionName;
  Steps StepsDrop;
  Shares SharesDrop;
  Label LblOutlet;
  Label LblRemark;
};

}  // namespace kalvo

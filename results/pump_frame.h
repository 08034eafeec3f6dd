#pragma once

#include "form/form.h"

namespace kalvo {

/// What both views tell of pump and network, from row 1.
class PumpFrame {
 public:
  explicit PumpFrame(Form& form);

  /// Makes the row's pipe system the study's, and shows all.
  void Take(Desk& desk, const SectionRow& first);
  /// Flow and head alone, after the rows have become others.
  void TakePump(const Desk& desk, const SectionRow& first);

  Label LblThema;
  Label LblFlow;
  Label LblHead;
  Label LblPipes;
  Label LblMeanTemp;
  Label LblMeanVel;
  Label LblLiquid;
};

/// Head of the pump in m w.g., two decimals, from a drop in mm w.g.
double HeadOf(float drop);

/// Makes the row's pipe system the study's. Its title, trimmed; empty when it cannot be read, which
/// the user is told.
std::string TakePipeSystem(Workbench& bench, const SectionRow& first);

}  // namespace kalvo

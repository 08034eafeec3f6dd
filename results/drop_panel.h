#pragma once

#include <vector>

#include "engine/explain.h"
#include "form/pictures.h"

namespace kalvo {

/// The way from flow to drop as the panel beside the results shows it: flow, diameter, velocity,
/// Reynolds number, friction factor, friction rate, equivalent length, drop.
std::vector<StepLine> PanelSteps(const DropExplanation& explanation, Separators separators);

/// What the drop is made of: pipe, fittings with what counts as such, margin, emitter or outlet.
std::vector<Share> PanelShares(const DropExplanation& explanation, Separators separators);

}  // namespace kalvo

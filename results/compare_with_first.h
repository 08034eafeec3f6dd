#pragma once

#include <optional>

#include "engine/diameter_change.h"
#include "form/desk.h"

namespace kalvo {

/// What the changes of diameters since the results were opened come to. Nothing: it cannot be
/// found out, and the user was told why.
std::optional<ResultComparison> CompareWithFirst(Desk& desk);

/// The comparison above the question whether new diameters shall stand.
MessageFacts FactsOf(const ResultComparison& comparison, const Desk& desk);

}  // namespace kalvo

#pragma once

#include <string>

#include "cli/console.h"
#include "engine/diameter_change.h"

namespace kalvo {

/// What a change of diameters comes to, on paper: values before and after, then each section in
/// which something differs. The fluid content, in litres, is told of closed systems.
void PrintComparison(const Console& console, const ResultComparison& comparison, bool closed);

/// The sections alone, a line each, as the other csv tables.
void PrintComparisonCsv(const Console& console, const ResultComparison& comparison);

/// All of it.
std::string ComparisonJson(const std::string& file, const ResultComparison& comparison,
                           bool closed);

}  // namespace kalvo

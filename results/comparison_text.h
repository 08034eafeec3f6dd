#pragma once

#include <string>

#include "engine/diameter_change.h"
#include "study/separators.h"

namespace kalvo {

/// What a comparison shows of a value, whichever window shows it.

/// A value with its decimals, such as pattern::kOneDecimal.
struct ComparedText {
  std::string before;
  std::string after;
  std::string difference;  ///< with its sign; empty when the texts are the same
  bool falls = false;
};

ComparedText TextOf(BeforeAfter<double> pair, std::string_view pattern, Separators separators);
/// The same of values of rows, which read as in the other windows.
ComparedText TextOf(const BeforeAfter<float>& pair, std::string_view pattern,
                    Separators separators);

/// The head: with its part of the head before, "−2,18 m w.g. · −24,1 %".
std::string HeadDifference(BeforeAfter<double> head, Separators separators);

/// The head before and after, rounded as in the results.
BeforeAfter<double> RoundedHead(const ResultComparison& comparison);
/// The drop of the critical branch in mm w.g.
BeforeAfter<float> BranchDrop(const ResultComparison& comparison);
/// Content of the pipes in litres.
BeforeAfter<double> Litres(const ResultComparison& comparison);

/// Available pressures without their signs, as in the results.
BeforeAfter<float> ShownPressure(const ChangedSection& section);

/// The sections whose nominal diameter differs.
int CountNewDiameters(const ResultComparison& comparison);

}  // namespace kalvo

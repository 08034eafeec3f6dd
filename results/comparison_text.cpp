#include "results/comparison_text.h"

#include <algorithm>
#include <cmath>

#include "results/pump_frame.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

constexpr const char* kMinus = "−";
constexpr double kLitresPerM3 = 1000.0;
constexpr double kMmPerM = 1000.0;

std::string Signed(double value, std::string_view pattern, Separators separators) {
  return (value < 0 ? kMinus : "+") + FormatPattern(std::fabs(value), pattern, separators);
}

}  // namespace

ComparedText TextOf(BeforeAfter<double> pair, std::string_view pattern, Separators separators) {
  ComparedText text{FormatPattern(pair.before, pattern, separators),
                    FormatPattern(pair.after, pattern, separators),
                    {},
                    pair.after < pair.before};
  if (text.before == text.after) return text;
  // Of the values as they are read, so that the line adds up.
  const double before = ParseNumber(text.before, separators);
  text.difference = Signed(ParseNumber(text.after, separators) - before, pattern, separators);
  return text;
}

ComparedText TextOf(const BeforeAfter<float>& pair, std::string_view pattern,
                    Separators separators) {
  return TextOf(BeforeAfter<double>{ThroughText(pair.before), ThroughText(pair.after)}, pattern,
                separators);
}

std::string HeadDifference(BeforeAfter<double> head, Separators separators) {
  std::string text = TextOf(head, pattern::kTwoDecimals, separators).difference;
  if (text.empty()) return "ίδιο";
  text += " m w.g.";
  if (head.before != 0) {
    const double percent = (head.after - head.before) / head.before * 100.0;
    text += "  ·  " + Signed(percent, pattern::kOneDecimal, separators) + " %";
  }
  return text;
}

BeforeAfter<double> RoundedHead(const ResultComparison& comparison) {
  const BeforeAfter<float> drop = BranchDrop(comparison);
  return {HeadOf(drop.before), HeadOf(drop.after)};
}

BeforeAfter<float> BranchDrop(const ResultComparison& comparison) {
  return {static_cast<float>(comparison.head.before * kMmPerM),
          static_cast<float>(comparison.head.after * kMmPerM)};
}

BeforeAfter<double> Litres(const ResultComparison& comparison) {
  return {comparison.fluid_content.before * kLitresPerM3,
          comparison.fluid_content.after * kLitresPerM3};
}

BeforeAfter<float> ShownPressure(const ChangedSection& section) {
  return {std::fabs(section.pressure.before), std::fabs(section.pressure.after)};
}

int CountNewDiameters(const ResultComparison& comparison) {
  return static_cast<int>(std::ranges::count_if(
      comparison.sections,
      [](const ChangedSection& section) { return section.diameter.Differs(); }));
}

}  // namespace kalvo

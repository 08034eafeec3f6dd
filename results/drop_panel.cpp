#include "results/drop_panel.h"

#include <algorithm>
#include <array>

namespace kalvo {
namespace {

// A line of the panel: its tile, its words, and the step of the explanation that it shows.
struct PanelLine {
  std::string_view symbol;
  std::string_view what;
  std::string_view step;
};

constexpr std::array kLines = {PanelLine{"Q", "Παροχή", "Παροχή Q"},
                               PanelLine{"D", "Εσωτερική διάμετρος", "Εσωτερική διάμετρος D"},
                               PanelLine{"v", "Ταχύτητα", "Ταχύτητα v"},
                               PanelLine{"Re", "Αριθμός Reynolds", "Reynolds Re"},
                               PanelLine{"λ", "Συντελεστής τριβής", "Συντελεστής τριβής λ"},
                               PanelLine{"R", "Πτώση ανά μέτρο", "Τριβή R"}};
constexpr std::string_view kDropStep = "Συνολική πτώση";
constexpr std::size_t kOwnParts = 4;  // pipe, fittings, other drops, plant: R times a length

std::string Number(double value, int decimals, Separators separators) {
  std::string pattern = "#,##0";
  if (decimals > 0) pattern += "." + std::string(static_cast<std::size_t>(decimals), '0');
  return FormatPattern(value, pattern, separators);
}

const ExplainStep* Find(const DropExplanation& explanation, std::string_view what) {
  const auto found = std::ranges::find(explanation.steps, what, &ExplainStep::what);
  return found == explanation.steps.end() ? nullptr : &*found;
}

StepLine LengthLine(const DropExplanation& explanation, Separators separators) {
  StepLine line{"L", "Ισοδύναμα μήκη", "", "", "m"};
  double whole = 0;
  for (const ExplainStep& step : explanation.steps) {
    const bool part = step.what.size() > 2 && step.what[0] == 'L' && step.what[2] == ' ';
    if (!part || step.value == 0) continue;
    whole += step.value;
    line.formula += (line.formula.empty() ? "" : " + ") + Number(step.value, 2, separators);
  }
  line.value = Number(whole, 2, separators);
  return line;
}

}  // namespace

std::vector<StepLine> PanelSteps(const DropExplanation& explanation, Separators separators) {
  std::vector<StepLine> lines;
  for (const PanelLine& wanted : kLines) {
    if (const ExplainStep* step = Find(explanation, wanted.step)) {
      lines.push_back({std::string(wanted.symbol), std::string(wanted.what), step->formula,
                       Number(step->value, step->decimals, separators), step->unit});
    }
  }
  lines.push_back(LengthLine(explanation, separators));
  if (const ExplainStep* step = Find(explanation, kDropStep)) {
    lines.push_back({"Δp", "Πτώση πίεσης", step->formula,
                     Number(explanation.stored_drop, step->decimals, separators), step->unit});
  }
  return lines;
}

std::vector<Share> PanelShares(const DropExplanation& explanation, Separators separators) {
  std::vector<Share> parts;
  for (std::size_t i = 0; i < explanation.shares.size(); ++i) {
    const DropShare& share = explanation.shares[i];
    const double fraction = share.fraction.value_or(0);
    if (i >= 2 && i < kOwnParts) {  // other drops and the plant count with the fittings
      parts.back().fraction += fraction;
      continue;
    }
    parts.push_back({share.what, "", fraction});
  }
  for (Share& part : parts) {
    part.value = Number(part.fraction * explanation.computed_drop, 1, separators);
  }
  return parts;
}

}  // namespace kalvo

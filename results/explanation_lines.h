#pragma once

#include <string>
#include <vector>

#include "engine/explain.h"
#include "form/picture_lines.h"

namespace kalvo {

/// An explanation at length, as the cells of three tables.
struct LongExplanation {
  struct Step {
    std::string what;
    std::string value;
    std::string unit;
    std::string formula;
  };
  struct FittingLine {
    std::string what;
    std::string count;
    std::string zeta;
    std::string length;  ///< m
  };
  struct ShareLine {
    std::string what;
    std::string drop;     ///< mm w.g.
    std::string percent;  ///< "---" of a drop that is not above 0
  };
  std::vector<Step> steps;
  std::vector<FittingLine> fittings;
  std::vector<ShareLine> shares;
  std::string remark;  ///< empty, or that the row holds another drop
};

LongExplanation ExplainAtLength(const DropExplanation& explanation, Separators separators);

/// The steps in short, with what the row itself holds: the name of its pipe, its emitter, its drop.
std::vector<StepLine> ShortSteps(const DropExplanation& explanation, const SectionRow& row,
                                 Separators separators);

/// The shares that are drawn: what is neither pipe nor margin nor emitter goes with the fittings.
std::vector<Share> ShortShares(const DropExplanation& explanation, Separators separators);

/// Empty, or what is particular about the drop.
std::string ShortRemark(const DropExplanation& explanation, Separators separators);

}  // namespace kalvo

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "study/study.h"

namespace kalvo {

/// Section numbers of a branch's text ("1  -7  -12 -"), in its order; those that are no row of
/// `row_count` are left out.
std::vector<int> CriticalSections(std::string_view branch, std::size_t row_count);

/// Names of the nodes along these sections, one more than sections: of a closed network from where
/// the first begins, of an open one from the feeder of the first by the sections' own names.
std::vector<std::string> NodesAlong(SystemKind kind, std::span<const SectionRow> rows,
                                    std::span<const int> sections);

/// "ANT – 1 – 5 – ANT"
std::string BranchLine(const std::vector<std::string>& nodes);

}  // namespace kalvo

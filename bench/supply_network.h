#pragma once

#include <vector>

#include "study/section_row.h"

namespace kalvo {

/// Rows of an open study that is not calculated: risers of twelve floors with an outlet at each,
/// two at the top. A way to an outlet has at most 14 sections however large the network is: a
/// larger one has more risers. `sections`: from 5 to 1400.
std::vector<SectionRow> SupplyStudy(int sections);

}  // namespace kalvo

#pragma once

#include <vector>

#include "study/section_row.h"

namespace kalvo {

/// Rows of a closed study that is not calculated: the heating of a long building with one pipe pair
/// from the plant room to a header, from there a shaft to each part of the building, in a shaft a
/// riser of three floors and on each floor a corridor. Every pair of pipes ends at a unit of its
/// own, so that a third of the rows are emitters; what a whole number of pairs and units leaves
/// over, 9 to 11 rows, makes up the plant room. A circuit has at most 30 sections however large the
/// network is: a larger one has more shafts. `sections`: from 12 to 1400.
std::vector<SectionRow> BuildingStudy(int sections);

}  // namespace kalvo

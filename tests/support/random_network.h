#pragma once

#include <cstdint>
#include <vector>

#include "study/study.h"

namespace kalvo {

/// Rows of a network that can be calculated, as a seed has it: pipes, fittings, emitters and
/// velocity within what buildings have. A closed one has two to fourteen emitters, supply and
/// return each branching in their own way, rows in the order of a walk or in any, and mostly a
/// plant section somewhere. The same seed gives the same rows everywhere.
std::vector<SectionRow> RandomNetwork(std::uint32_t seed, SystemKind kind);

/// How many seeds a test tries: 50, or what KALVO_RANDOM_STUDIES in the environment says.
std::uint32_t CountOfRandomStudies();

}  // namespace kalvo

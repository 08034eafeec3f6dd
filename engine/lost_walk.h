#pragma once

#include <optional>
#include <string>

#include "study/study.h"

namespace kalvo {

/// Where the network cannot be walked, if it cannot: in a closed one as WriteSectionFlows() goes
/// from every emitter to the source both ways, in an open one from every outlet over its feeders to
/// row 1. Results of such a network do not hold. The study stays as it is.
std::optional<LostWalk> FindLostWalk(const Study& study);

/// What is wrong there, one line for the user.
std::string LostWalkText(const Study& study, const LostWalk& lost);

}  // namespace kalvo

#pragma once

#include <ostream>

#include "cli/session.h"

namespace kalvo {

/// Prints what the last check found: the lines of the error list, then where a walk was lost.
void PrintFindings(std::ostream& stream, Session& session);

}  // namespace kalvo

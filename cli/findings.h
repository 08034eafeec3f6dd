#pragma once

#include <string>

#include "cli/session.h"

namespace kalvo {

/// What the last check found, a line each: those of the error list, then where a walk was lost.
std::string FindingsText(Session& session);

}  // namespace kalvo

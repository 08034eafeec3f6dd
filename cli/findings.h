#pragma once

#include <string>

#include "cli/session.h"

namespace kalvo {

/// What the last check found, a line each.
std::string FindingsText(Session& session);

}  // namespace kalvo

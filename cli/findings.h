#pragma once

#include <string>
#include <vector>

#include "cli/session.h"

namespace kalvo {

/// All checks of the study's kind.
struct CheckResult {
  int code = exit_code::kDone;
  std::vector<std::string> findings;  ///< each once
};
CheckResult CheckStudy(Session& session);

/// What the last check found, a line each.
std::string FindingsText(Session& session);

}  // namespace kalvo

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

/// Of results that were shown: whether their network can be walked. When it cannot they do not
/// hold, which `err` gets in a line that a quiet console keeps. The exit code.
int TellLostWalk(const Console& console, const Session& session);

}  // namespace kalvo

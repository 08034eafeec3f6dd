#pragma once

#include <string>
#include <vector>

#include "cli/console.h"

namespace kalvo {

/// Runs `kalvo` with the arguments behind the program's name. Gives the exit code.
int RunCommandLine(std::vector<std::string> arguments, Console console);

}  // namespace kalvo

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "study/result.h"

namespace kalvo {

/// The program of that name in $PATH, or at that path; empty when there is none.
std::filesystem::path FindProgram(const std::string& name);

/// Starts a program that goes on by itself, also when this one ends. Error: it does not start.
Outcome StartDetached(const std::filesystem::path& program, std::vector<std::string> arguments);

}  // namespace kalvo

#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <string_view>

namespace kalvo {

/// Skips the test that reads a file back with a program which is not installed; on a build machine
/// (CI=true in the environment), where all are, it fails. For SetUp() of a fixture.
inline void NeedProgram(const std::string& name, std::string_view package) {
  if (std::system(("command -v " + name + " >/dev/null").c_str()) == 0) return;
  const char* machine = std::getenv("CI");
  if (machine != nullptr && std::string_view(machine) == "true") {
    FAIL() << name << " is missing; install " << package;
  }
  GTEST_SKIP() << name << " is missing; it comes with " << package;
}

}  // namespace kalvo

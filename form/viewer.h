#pragma once

#include <filesystem>

#include "study/result.h"

namespace kalvo {

/// Shows a file with the program that the desktop has for it.
class Viewer {
 public:
  virtual ~Viewer() = default;
  /// Error: there is no such program, or it did not start.
  virtual Outcome Open(const std::filesystem::path& file) = 0;
};

}  // namespace kalvo

#pragma once

#include <algorithm>
#include <filesystem>
#include <string>

namespace kalvo {

/// The path that a text from outside tells: one that was typed, given or read from a file. "\"
/// parts folders as "/" does; paths are written with the platform's own separator.
inline std::filesystem::path PathFromText(std::string text) {
  std::replace(text.begin(), text.end(), '\\', '/');
  return std::filesystem::path(std::move(text)).make_preferred();
}

}  // namespace kalvo

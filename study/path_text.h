#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

#include "study/result.h"

namespace kalvo {

/// The path that a text from outside tells: one that was typed, given or read from a file. "\"
/// parts folders as "/" does; paths are written with the platform's own separator.
inline std::filesystem::path PathFromText(std::string text) {
  std::replace(text.begin(), text.end(), '\\', '/');
  return std::filesystem::path(std::move(text)).make_preferred();
}

/// `path` from the root on. Error: it begins at the working folder, which is gone.
inline Result<std::filesystem::path> AbsolutePath(const std::filesystem::path& path) {
  std::error_code error;
  auto absolute = std::filesystem::absolute(path, error);
  if (error) return FileError{path, "Ο φάκελος όπου εκτελείται η εντολή δεν υπάρχει πια"};
  return absolute;
}

}  // namespace kalvo

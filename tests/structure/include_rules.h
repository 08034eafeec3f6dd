#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kalvo {

/// An #include line that breaks the order of the floors.
struct IncludeOffence {
  int line = 0;
  std::string included;
  std::string reason;

  bool operator==(const IncludeOffence&) const = default;
};

/// The offences of one source, in line order.
/// @param path of the file from the project's root, with "/" ("engine/hydraulics.cpp").
/// @param text the file's contents.
///
/// A project file is included in quotes, by its path from the root, and lies in the same folder or
/// on a lower floor. The floors study to shell include, besides, only headers of the standard
/// library and of the operating system. A file in a folder that is no part of the table is an
/// offence of its own, at line 0.
std::vector<IncludeOffence> FindIncludeOffences(std::string_view path, std::string_view text);

}  // namespace kalvo

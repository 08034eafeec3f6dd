#pragma once

#include <string>
#include <vector>

#include "study/workspace.h"

namespace kalvo {

/// Older lines that follow the newest one.
constexpr std::size_t kOlderRecentFiles = 25;

/// Puts `path` on top of `RecentFiles.txt`; at most kOlderRecentFiles older lines follow.
/// A path that cannot stand in a list of lines (no UTF-8, or a line end in it) is left out.
Outcome AddRecentFile(Workspace& workspace, const std::filesystem::path& path);

/// Paths of `RecentFiles.txt`, newest first, read with or without quotes, UTF-8 or code
/// page, with "/" or "\" between folders.
std::vector<std::string> ReadRecentFiles(const Workspace& workspace);

}  // namespace kalvo

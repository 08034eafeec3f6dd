#pragma once

#include <string>
#include <vector>

#include "study/study.h"
#include "study/workspace.h"

namespace kalvo {

/// Older lines that follow the newest one.
constexpr std::size_t kOlderRecentFiles = 25;

/// Puts `path` on top of `RecentFiles.txt`; at most kOlderRecentFiles older lines follow.
/// A path that cannot stand in a list of lines (no UTF-8, or a line end in it) is left out. A line
/// that is no UTF-8 keeps its bytes.
Outcome AddRecentFile(Workspace& workspace, const std::filesystem::path& path);

/// Paths of `RecentFiles.txt`, newest first, read with or without quotes, each line as UTF-8 or
/// else code page, with "/" or "\" between folders.
std::vector<std::string> ReadRecentFiles(const Workspace& workspace);

/// A line of the list: its place among all lines, counted from 0, and what it tells.
struct RecentLine {
  std::size_t place = 0;
  std::string path;

  /// What stands behind the last separator, and what before it.
  [[nodiscard]] std::string file_name() const;
  [[nodiscard]] std::string folder() const;
  /// True for a full path of this system; others are shown but lead nowhere.
  [[nodiscard]] bool IsFull() const { return path.starts_with('/'); }
};

/// The lines of studies of the kind, by their last four characters. kNone counts as closed.
std::vector<RecentLine> RecentFilesOfKind(const Workspace& workspace, SystemKind kind);

/// Takes the line out that stands at `place`, if it still tells `path`; all others keep their
/// bytes. The list is rebuilt in `RecentFiles.@@@`; one that has become empty is deleted.
Outcome RemoveRecentFile(Workspace& workspace, const RecentLine& line);

/// Deletes an empty list. Whether there is one to show.
bool TidyRecentFiles(Workspace& workspace);

}  // namespace kalvo

#include "shell/folder_tree.h"

#include <algorithm>

#include "shell/search_text.h"

namespace kalvo {

namespace fs = std::filesystem;

std::vector<std::string> SubfolderNames(const Disk& disk, const fs::path& folder) {
  std::vector<std::string> names;
  auto entries = disk.List(folder);
  for (std::string& name : entries ? *entries : std::vector<std::string>{}) {
    if (!name.starts_with('.') && disk.IsFolder(folder / name)) names.push_back(std::move(name));
  }
  std::ranges::sort(names, StandsBefore);
  return names;
}

void FolderTree::ShowAt(const fs::path& folder) {
  lines_.clear();
  fs::path at = root_;
  lines_.push_back({at, 0, true});
  const fs::path below = folder.lexically_normal().lexically_relative(root_);
  for (const fs::path& part : below) {
    if (part == "..") break;  // it is no folder of this tree
    if (part.empty() || part == ".") continue;
    at /= part;
    lines_.push_back({at, static_cast<int>(lines_.size()), true});
  }
  top_ = current_ = static_cast<int>(lines_.size()) - 1;
  Open(static_cast<std::size_t>(current_));
}

void FolderTree::GoTo(int line) {
  if (line < top_) {
    ShowAt(fs::path(lines_[static_cast<std::size_t>(line)].path));
    return;
  }
  current_ = line;
  if (!lines_[static_cast<std::size_t>(line)].open) Open(static_cast<std::size_t>(line));
}

void FolderTree::Open(std::size_t line) {
  lines_[line].open = true;
  const fs::path above = lines_[line].path;
  std::vector<Line> below;
  for (const std::string& name : SubfolderNames(*disk_, above)) {
    below.push_back({above / name, lines_[line].depth + 1, false});
  }
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(line) + 1, below.begin(), below.end());
}

const fs::path& FolderTree::folder() const {
  return lines_[static_cast<std::size_t>(current_)].path;
}

std::vector<std::string> FolderTree::Names() const {
  std::vector<std::string> names;
  for (const Line& line : lines_) {
    const fs::path name = line.path.filename();
    names.push_back(name.empty() ? line.path.string() : name.string());
  }
  return names;
}

std::vector<int> FolderTree::Depths() const {
  std::vector<int> depths;
  for (const Line& line : lines_) {
    depths.push_back(line.depth);
  }
  return depths;
}

}  // namespace kalvo

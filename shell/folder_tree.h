#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "study/disk.h"

namespace kalvo {

/// Folders as a dialog offers them: those from its root down to the one on show, and what lies
/// below it. Lines above the one that the user goes to never move, so that a second click meets
/// the same folder. Hidden folders are left out.
class FolderTree {
 public:
  explicit FolderTree(const Disk& disk) : disk_(&disk) {}

  /// The folder that the tree begins at; "/" at first. ShowAt() shows it.
  void SetRoot(std::filesystem::path root) { root_ = std::move(root); }
  /// The tree anew: the folders above `folder`, itself and its subfolders. It need not exist.
  void ShowAt(const std::filesystem::path& folder);
  /// The user goes to the folder of a line; its subfolders stand below it from then on.
  void GoTo(int line);

  /// The folder on show and its line.
  [[nodiscard]] const std::filesystem::path& folder() const;
  [[nodiscard]] int current() const { return current_; }
  [[nodiscard]] std::vector<std::string> Names() const;
  [[nodiscard]] std::vector<int> Depths() const;

 private:
  struct Line {
    std::filesystem::path path;
    int depth = 0;
    bool open = false;  ///< its subfolders stand below it
  };

  void Open(std::size_t line);

  const Disk* disk_;
  std::filesystem::path root_ = "/";
  std::vector<Line> lines_;
  int current_ = 0;
  int top_ = 0;  ///< the line down to which the tree is one path
};

/// Names of the folders in `folder` in the order of a list, without hidden ones.
std::vector<std::string> SubfolderNames(const Disk& disk, const std::filesystem::path& folder);

}  // namespace kalvo

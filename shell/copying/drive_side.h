#pragma once

#include <filesystem>
#include <functional>
#include <vector>

#include "form/choice.h"
#include "form/list.h"
#include "shell/folder_tree.h"
#include "study/copying/volumes.h"
#include "study/workbench.h"

namespace kalvo {

/// One end of a copying: a drive, and a folder of it.
class DriveSide {
 public:
  DriveSide(Workbench& bench, Choice& drives, List& folders);

  /// Called when the user has gone to another folder.
  std::function<void()> on_change;

  /// The drives that there are; the one chosen stays chosen as long as it is there.
  void SetVolumes(const std::vector<Volume>& volumes);
  /// Goes to a folder, on the drive that has it.
  void GoTo(const std::filesystem::path& folder);
  /// Looks at the subfolders anew.
  void Refresh();

  [[nodiscard]] const std::filesystem::path& folder() const { return folders_.folder(); }
  /// The drive; nullptr while the one that was chosen is away.
  [[nodiscard]] const Volume* volume() const;

 private:
  void TakeDrive();
  void ShowFolders();

  Workbench& bench_;
  Choice& drives_;
  List& list_;
  FolderTree folders_;
  std::vector<Volume> volumes_;
  int chosen_ = -1;
};

}  // namespace kalvo

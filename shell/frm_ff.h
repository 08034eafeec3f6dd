#pragma once

#include "form/form.h"
#include "shell/folder_tree.h"

namespace kalvo {

/// The choice of the folder below which studies are kept, typed or picked from a list of folders.
class FrmFF : public Form {
 public:
  explicit FrmFF(Desk& shared_desk);

  void Load() override;

  Field TxtFolder{*this, "TxtFolder", KeyFamily::kPath};
  Command Cmd_NewFolder;
  List DirList{*this, "DirList"};
  Command Cmd_Exit;
  Command Cmd_Go;

 private:
  void ListFolders();
  /// Shows in the list the folder that is typed, or the nearest one above it that is there.
  void ShowTyped();
  void Accept();
  void Refuse(std::vector<std::string> lines);

  FolderTree folders_;
};

}  // namespace kalvo

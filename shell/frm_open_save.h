#pragma once

#include "form/form.h"
#include "shell/folder_tree.h"
#include "shell/studies_index.h"

namespace kalvo {

/// The studies of a folder by their titles, one of which is to be opened. The dialog only chooses
/// (`ScreenState::chosen_file`); the screen that showed it loads.
class FrmOpenSave : public Form {
 public:
  explicit FrmOpenSave(Desk& shared_desk);

  void Load() override;
  /// Letters typed on a list search its titles.
  bool OtherKey(const Key& key) override;

  List DirList{*this, "DirList"};
  Label LblList{*this, "LblList", " Λίστα ΑΡΧΕΙΩΝ "};
  Label LblCount{*this, "LblCount"};
  Field TxtSearch{*this, "TxtSearch"};
  List LstStudies{*this, "LstStudies"};
  Label LblEmpty{*this, "LblEmpty"};  ///< why there is no study to be seen
  Label LblPattern{*this, "LblPattern"};
  List FileList{*this, "FileList"};
  Label LblTitle{*this, "LblTitle"};
  Label LblFileName{*this, "LblFileName"};
  Label LblFolder{*this, "LblFolder"};
  Label LblFileDate{*this, "LblFileDate"};
  Label LblFileTime{*this, "LblFileTime"};
  Command CmdCancel;
  Command CmdClassic;
  Command CmdOpenSave;

 private:
  void ListFolder();
  void Search();
  void Pick(int line);
  void ShowPicked();
  /// Why no line is shown; nothing when there are some.
  [[nodiscard]] std::string WhyEmpty() const;
  [[nodiscard]] const ListedStudy* Picked() const;
  void Choose();
  void GoClassic();

  FolderTree folders_;
  std::vector<ListedStudy> studies_;
  std::vector<std::size_t> shown_;  ///< positions of the studies that the search leaves
};

}  // namespace kalvo

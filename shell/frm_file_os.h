#pragma once

#include "form/form.h"

namespace kalvo {

/// The classic dialog of folders and files, for opening or saving as `Desk::screens` tells. It only
/// chooses: the file goes to `chosen_file`, which stays empty for "Escape".
class FrmFileOS : public Form {
 public:
  explicit FrmFileOS(Desk& shared_desk);

  void Load() override;

  Label LblName{*this, "LblName", "Όνομα Αρχείου : "};
  Field TxtFileName{*this, "TxtFileName", KeyFamily::kPath};
  Label LblExtension{*this, "LblExtension"};
  Label LblFolders{*this, "LblFolders", "< Τρέχων > Κατάλογος Αρχείων :"};
  Label LblFolder{*this, "LblFolder"};
  Label LblNewFolder{*this, "LblNewFolder", "Όνομα νέου φακέλου : "};
  Field TxtNewFolder{*this, "TxtNewFolder", KeyFamily::kPath};
  List DirList{*this, "DirList"};
  List FileList{*this, "FileList"};
  Label LblEmpty{*this, "LblEmpty"};  ///< why there is nothing to be seen
  Command CmdPrePath;
  Command Cmd_DefaultPath;
  Command CmdNewFolder;
  Command CmdExit;
  Command CmdOK;

 private:
  void ShowFolder(std::filesystem::path folder);
  void ShowFiles();
  void EnterSelectedFolder();
  /// Asks for the name of a new folder, or makes the one that was typed and shows it.
  void NewFolder();
  void ShowNewFolder(bool visible);
  void Leave();
  void Confirm();
  void GoTo(const std::filesystem::path& folder);
  void ConfirmOpen(const std::filesystem::path& path);
  void ConfirmSave(const std::filesystem::path& path);
  void Choose(const std::filesystem::path& path);
  [[nodiscard]] bool Saving() const;
  [[nodiscard]] std::filesystem::path ProposedTarget() const;

  std::filesystem::path folder_;
  std::vector<std::string> folders_;
  std::string mask_;  ///< typed with "*"; empty: every study
};

}  // namespace kalvo

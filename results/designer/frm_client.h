#pragma once

#include <optional>

#include "form/form.h"
#include "study/designer_names.h"

namespace kalvo {

/// Choice of the designer whose name goes on paper, and upkeep of the list of designers. A choice
/// holds at once; the list is written when the form closes, or when its password changes.
class FrmCLient : public Form {
 public:
  explicit FrmCLient(Desk& shared_desk);

  void Load() override;
  bool MayClose() override;

  Label SSPanel1{*this, "SSPanel1"};  ///< the name that goes on paper now
  Label LblStudy{*this, "LblStudy"};  ///< the name that the study keeps, where that is another
  Command Cmd_Copy;
  List Lst_Names{*this, "Lst_Names"};
  Command Cmd_New;
  Command Cmd_COR;
  Command Cmd_Del;
  Command Cmd_Lock;
  Label LblPrompt{*this, "LblPrompt"};
  Field Txt_Client{*this, "Txt_Client"};
  Label LblCount{*this, "LblCount"};
  Command Cmd_Cancel;
  Command Cmd_Store;
  Label LblPass{*this, "LblPass", "Password : "};
  Field Txt_Pass{*this, "Txt_Pass"};
  Command Cmd_Exit;
  Command Cmd_OK;

 private:
  /// What a name is typed for.
  enum class Entry { kNone, kNew, kCorrection };

  void ShowCurrent();
  void ShowList(int selected);
  void ShowPassword();
  /// No name is being typed, and the list is known; otherwise a box said why not.
  bool IsReady();
  /// The same, and a name of the list is selected.
  bool HasName();
  [[nodiscard]] const std::string& SelectedName() const;
  void Delete();
  void CopyCurrent();
  void ChangePassword();
  void Choose();
  void Leave();
  /// Writes the list if it has changed. False: it could not be written, and the user stays.
  bool KeepList();
  void Tell(std::vector<std::string> lines);

  /// Opens the field for a name, or closes it.
  void ShowEntry(Entry entry, std::string_view text = {});
  void ShowCount();
  /// The user has typed the name and means it.
  void StoreEntry();
  void TakeEntry();
  /// False: the name is empty or in the list already, and a box said so.
  bool EntryFits();
  /// Closes the field, after a question when something is typed. False: the user stays with it.
  bool SettleEntry();
  [[nodiscard]] bool HasTyped() const;

  DesignerList list_;
  DesignerList kept_;                ///< as it is in the file
  std::optional<FileError> unread_;  ///< why the list is not known
  std::string current_;
  Entry entry_ = Entry::kNone;
  int corrected_ = -1;  ///< the name that is being corrected
};

}  // namespace kalvo

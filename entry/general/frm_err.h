#pragma once

#include "form/form.h"

namespace kalvo {

/// The values that the sheet's check found missing. It takes `ERRORS.TMP` over: the file goes, a
/// copy to be read and printed stays in the state folder.
class FrmERR : public Form {
 public:
  explicit FrmERR(Desk& shared_desk);

  void Load() override;

  List LstERR{*this, "LstERR"};
  Command Cmd_Exit;
  Command Cmd_Print;

 private:
  [[nodiscard]] std::filesystem::path CopyPath() const { return desk.state_folder / "~vamo_P.txt"; }
  Outcome KeepCopy();
  void Print();

  bool copied_ = false;  ///< of the list that shows
};

}  // namespace kalvo

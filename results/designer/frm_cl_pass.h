#pragma once

#include "form/form.h"

namespace kalvo {

/// The password of the list of designers: asked for before a print, or changed by a user who knows
/// it. The answer is in `Questions`; a form closed otherwise answers nothing.
class FrmCLPass : public Form {
 public:
  explicit FrmCLPass(Desk& shared_desk);

  void Load() override;

  Label LblOld{*this, "LblOld", "Δώστε το υπάρχον Password : "};
  Field TxtOld{*this, "TxtOld"};
  Label LblNew{*this, "LblNew", "Δώστε το Νέο Password : "};
  Field TxtPass{*this, "TxtPass"};
  Label LblAgain{*this, "LblAgain", "Δώστε το Νέο Password : "};
  Field TxtPassOK{*this, "TxtPassOK"};
  Label LblHint{*this, "LblHint"};
  Command Cmd_Exit;
  Command Cmd_OK;

 private:
  void Accept();
  /// False: the two new ones differ, or the user does not want an open list after all.
  bool NewIsMeant();
};

}  // namespace kalvo

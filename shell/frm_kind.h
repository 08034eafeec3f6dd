#pragma once

#include "form/form.h"

namespace kalvo {

/// Choice of the kind of system. What was left of an earlier run is settled here before the main
/// menu opens; only this screen ends the program.
class FrmKind : public Form {
 public:
  explicit FrmKind(Desk& shared_desk);

  void Load() override;
  void Activate() override;
  bool MayClose() override;

  Toggle SSOption1{*this, "SSOption1", "< Κλειστό > Σύστημα Σωλήνων"};
  Toggle SSOption2{*this, "SSOption2", "< Ανοικτό > Σύστημα Σωλήνων"};
  Label LblWait{*this, "LblWait", "... Παρακαλώ, Περιμένετε ..."};
  Command Cmd_Exit;
  Command Cmd_Go;
  Command Mnu_Closed;
  Command Mnu_Open;

 private:
  void Choose(SystemKind kind);
  void ShowChoice();
  void Go();
  void OfferWaiting();
  /// Settles what an earlier run left. False: the user has not decided, the screen stays.
  bool SettleLeftOvers();
};

}  // namespace kalvo

#pragma once

#include "form/form.h"

namespace kalvo {

/// By which route something is printed: `RouteExcel` or `RouteProgram` of ScreenState, neither when
/// it is closed without a choice.
class FrmXLorNOT : public Form {
 public:
  explicit FrmXLorNOT(Desk& shared_desk);

  void Load() override;

  Toggle OptXL{*this, "OptXL", "Εκτύπωση, μέσω του Microsoft Excel"};
  Toggle OptCRW{*this, "OptCRW", "Εκτύπωση, μέσω του Προγράμματος"};
  Command CmdCancel;
  Command Cmd_Client;
  Command CmdOK;

 private:
  void Choose(bool spreadsheet);
  void Accept();
};

}  // namespace kalvo

#pragma once

#include "form/form.h"

namespace kalvo {

/// The keys of the sheet.
class FrmDtSheet_Help : public Form {
 public:
  explicit FrmDtSheet_Help(Desk& shared_desk);

  List LstKeys{*this, "LstKeys"};
  Command Cmd_Exit;
};

}  // namespace kalvo

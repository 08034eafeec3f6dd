#pragma once

#include "form/form.h"

namespace kalvo {

/// The findings of the checks of names, as they stand in `ERRORS.TMP`. The file stays.
class FrmError : public Form {
 public:
  explicit FrmError(Desk& shared_desk);

  void Load() override;

  Field TxtSystem{*this, "TxtSystem"};
  Label LblHint{*this, "LblHint", "... Πρέπει να ελέγξετε τις Ονομασίες των Τμημάτων ..."};
  List LstError{*this, "LstError"};
  Command CmdExit;
};

}  // namespace kalvo

#pragma once

#include "form/form.h"

namespace kalvo {

/// Choice of the method of a calculation, which it has made by the caller's run; closed without a
/// choice it has none made.
class FrmCalcs : public Form {
 public:
  explicit FrmCalcs(Desk& shared_desk);

  void Load() override;

  Label LblHeading{*this, "LblHeading", " ΤΡΟΠΟΣ ΥΠΟΛΟΓΙΣΜΟΥ ΣΩΛΗΝΩΝ "};
  Toggle SSOption1{*this, "SSOption1",
                   "1ος Τρόπος : Κλασσικός Τρόπος, με βάση αποκλειστικά και μόνον  την Παροχή"};
  Toggle SSOption2{*this, "SSOption2",
                   "2ος Τρόπος : με βάση την Παροχή, αλλά και την Διαθέσιμη Πίεση στην Αρχή του "
                   "Τμήματος"};
  Command CmdCancel;
  Command SSCommand1;

 private:
  void Choose(bool first);
  void Calculate();
};

}  // namespace kalvo

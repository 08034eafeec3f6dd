#pragma once

#include "form/form.h"

namespace kalvo {

/// Choice of the method of a calculation; it runs nothing. The answer is left for the caller: a
/// method, or none and `CalcStatus` -12 when the window was closed.
class FrmCalcs : public Form {
 public:
  explicit FrmCalcs(Desk& shared_desk);

  void Load() override;
  bool MayClose() override;

  Label LblHeading{*this, "LblHeading", " ΤΡΟΠΟΣ ΥΠΟΛΟΓΙΣΜΟΥ ΣΩΛΗΝΩΝ "};
  Toggle SSOption1{*this, "SSOption1",
                   "1ος Τρόπος : Κλασσικός Τρόπος, με βάση αποκλειστικά και μόνον  την Παροχή"};
  Toggle SSOption2{*this, "SSOption2",
                   "2ος Τρόπος : με βάση την Παροχή, αλλά και την Διαθέσιμη Πίεση στην Αρχή του "
                   "Τμήματος"};
  Label LblWait{*this, "LblWait", " ... Παρακαλώ, Περιμένετε ..."};
  Command CmdCancel;
  Command SSCommand1;

 private:
  void Choose(bool first);
  void GiveUp();
};

}  // namespace kalvo

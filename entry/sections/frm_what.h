#pragma once

#include "form/form.h"

namespace kalvo {

/// What section entry shall do with the rows that there are; closed without a choice it does not
/// begin.
class FrmWhat : public Form {
 public:
  explicit FrmWhat(Desk& shared_desk);

  void Load() override;

  Toggle SSOption1{*this, "SSOption1", "Παρουσίαση και Διόρθωση Τμημάτων Σωλήνων"};
  Toggle SSOption2{*this, "SSOption2", "Συνέχιση Καταχωρήσεων Τμημάτων Σωλήνων"};
  Command CmdCancel;
  Command SSCommand1;
  Command mnuOption1;
  Command mnuOption2;

 private:
  void Choose(EntryChoice choice);
  void Accept();
};

}  // namespace kalvo

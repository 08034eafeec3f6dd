#pragma once

#include "form/form.h"

namespace kalvo {

/// Jumps to a section chosen from the list of all. It only moves the study's `CurrentRow`; the
/// screen that opened it saves the row it shows before, and shows the other one after.
class FrmGoTo : public Form {
 public:
  explicit FrmGoTo(Desk& shared_desk);

  void Load() override;
  /// Digits select the section of that number; another key begins a new number.
  bool OtherKey(const Key& key) override;

  List LstSections{*this, "LstSections"};
  Label LblHint{*this, "LblHint",
                "Πληκτρολογήστε τον α/α του τμήματος · διπλό κλικ ή Enter: μετάβαση"};
  Command CmdExit;
  Command Cmd_GoToR;

 private:
  void Go();

  int typed_ = 0;  ///< the number typed so far
};

}  // namespace kalvo

#pragma once

#include "form/form.h"

namespace kalvo {

/// Asks whether the study that an earlier run left unsaved is to be brought back. It only answers
/// (`ScreenState::recover`); the screen that asked acts. Its window closed is neither yes nor no.
class FrmOldStudy : public Form {
 public:
  explicit FrmOldStudy(Desk& shared_desk);

  void Load() override;

  Label Label1{*this, "Label1", "Στον Σκληρό Δίσκο τού Συστήματός σας,"};
  Label Label2{*this, "Label2",
               "βρέθηκε μια ημιτελής Παλαιά Μελέτη, του Προγράμματος < Kalvoflume >."};
  Label Label3{*this, "Label3", "Το Πρόγραμμα είναι σε θέση να < αναβιώσει > την Μελέτη αυτή."};
  Label LblTitle{*this, "LblTitle"};
  Label LblFile{*this, "LblFile"};
  Label LblMoment{*this, "LblMoment"};
  Label LblKind{*this, "LblKind"};
  Label LblRows{*this, "LblRows"};
  Label Label4{*this, "Label4", "ΘΕΛΕΤΕ ΝΑ ΚΑΝΕΤΕ ΚΑΤΙ ΤΕΤΟΙΟ ;"};
  Label Label5{*this, "Label5", "... Εάν επιλέξετε < ΟΧΙ >, η Μελέτη θα χαθεί ΟΡΙΣΤΙΚΑ ! ..."};
  Command CmdExit;
  Command Command2;  ///< no
  Command Command1;  ///< yes

 private:
  void Answer(bool recover);
};

}  // namespace kalvo

#pragma once

#include <deque>

#include "entry/tees/tee_cases.h"
#include "form/form.h"
#include "form/pictures.h"

namespace kalvo {

/// Tees and crosses of the section that is being entered: the user presses the letter of the leg
/// that is the section. It follows the current section of the screen that has the counters.
class FrmTauCross_S : public Form {
 public:
  explicit FrmTauCross_S(Desk& shared_desk) : FrmTauCross_S(shared_desk, screen::kTees) {}

  void Load() override;
  /// Tells its screen that it shows; without counters to serve it closes.
  void Activate() override;
  bool MayClose() override;
  /// The keys of the letters, whatever the layout.
  bool OtherKey(const Key& key) override;
  void Derive() override;

  Label LblSection{*this, "LblSection"};
  Label LblDiaTee{*this, "LblDiaTee"};
  Label LblDieTee{*this, "LblDieTee"};
  Label LblAntiTee{*this, "LblAntiTee"};
  Label LblSymboTee{*this, "LblSymboTee"};
  Label LblHint{*this, "LblHint"};
  Label LblKeys{*this, "LblKeys"};
  Label LblTeesApart{*this, "LblTeesApart", "< ΤΑΥ >  (Οι Ροές Αποκλίνουν) "};
  Label LblTeesTogether{*this, "LblTeesTogether", " < ΤΑΥ >  (Οι Ροές Συγκλίνουν) "};
  Label LblCrossesApart{*this, "LblCrossesApart", " < ΣΤΑΥΡΟΙ > (Ροές Αποκλίνουν) "};
  Label LblCrossesTogether{*this, "LblCrossesTogether", " < ΣΤΑΥΡΟΙ > (Ροές Συγκλίνουν) "};
  std::deque<Junction> pictures;  ///< PicT1 to PicX2
  std::deque<Command> letters;    ///< Cmd_A to Cmd_T
  std::deque<Label> effects;      ///< LblEffect_A to LblEffect_T
  Command Cmd_Close;

 protected:
  /// `own_screen` is the name under which it shows.
  FrmTauCross_S(Desk& shared_desk, std::string_view own_screen);

 private:
  void MakeMenus();
  void PressLetter(char letter);
  void Close();
  void DeriveCounts();
  void DeriveEffects();

  std::string_view own_screen_;
  std::string refused_for_;  ///< the section that took no letter; empty: none
  std::string refusal_;      ///< why
};

}  // namespace kalvo

#pragma once

#include "form/form.h"
#include "study/safety_copies.h"

namespace kalvo {

/// The safety copies of the kind in work, one of which is to be opened. The dialog asks about the
/// open study and chooses (`ScreenState::chosen_file`); the screen that showed it loads.
class FrmSafety : public Form {
 public:
  explicit FrmSafety(Desk& shared_desk);

  void Load() override;

  Label LblEmpty{*this, "LblEmpty"};  ///< why there is nothing to be seen
  Grid fpSpread1{*this, "fpSpread1"};
  Label LblPlace{*this, "LblPlace"};  ///< the folder of the current copy
  Command CmdBack;
  Command CmdRecall;

  void Derive() override;

 private:
  [[nodiscard]] const SafetyCopy* Picked() const;
  void Recall();

  std::vector<SafetyCopy> copies_;
};

}  // namespace kalvo

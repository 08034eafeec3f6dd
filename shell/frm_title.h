#pragma once

#include "form/form.h"

namespace kalvo {

/// The program's first screen: shows for four seconds, or until the user does anything.
class FrmTitle : public Form {
 public:
  explicit FrmTitle(Desk& shared_desk);

  bool MayClose() override;
  bool OtherKey(const Key& key) override;

  Label LblVersion{*this, "LblVersion"};
  Command CmdGo;

 private:
  void GoOn();
};

}  // namespace kalvo

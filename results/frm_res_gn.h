#pragma once

#include "form/form.h"

namespace kalvo {

/// The pump of a calculated network on one page.
class FrmResGn : public Form {
 public:
  explicit FrmResGn(Desk& shared_desk);

  void Load() override;
  void Activate() override;
  void Derive() override;
  bool MayClose() override;

  Label TxtThema{*this, "TxtThema"};
  Label TxtKind{*this, "TxtKind"};
  Label Text2{*this, "Text2"};  ///< flow
  Label Text4{*this, "Text4"};  ///< head
  Label LblWay{*this, "LblWay"};
  Label TxtPipes{*this, "TxtPipes"};
  Field Text6{*this, "Text6"};  ///< mean temperature
  Field Text8{*this, "Text8"};  ///< mean velocity
  Toggle ChkSoundRG{*this, "ChkSoundRG", " On-Off Ήχων "};
  Command Cmd_Nodes;
  Command SSCommand1;

 private:
  void TakePump(const SectionRow& first);
  void ShowSections();
};

}  // namespace kalvo

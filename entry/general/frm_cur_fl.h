#pragma once

#include "form/form.h"

namespace kalvo {

/// What the study in work is and where it is kept, with the check of its sections' names.
class FrmCurFL : public Form {
 public:
  explicit FrmCurFL(Desk& shared_desk);

  void Derive() override;

  Label LblFile{*this, "LblFile"};
  Label LblFolder{*this, "LblFolder"};
  Label LblDate{*this, "LblDate"};
  Label LblTime{*this, "LblTime"};
  Label LblThema{*this, "LblThema"};
  Label LblSystem{*this, "LblSystem"};
  Label LblSections{*this, "LblSections"};
  Label LblEmitters{*this, "LblEmitters"};
  Command SSCommand1;
  Command Cmd_Names;

 private:
  void CheckNames();
};

}  // namespace kalvo

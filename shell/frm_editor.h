#pragma once

#include "form/form.h"

namespace kalvo {

/// Choice of the program that shows a text. Nothing chosen: the text is not shown.
class FrmEditor : public Form {
 public:
  explicit FrmEditor(Desk& shared_desk);

  void Load() override;

  Command CmdNotePad;
  Command CmdWordPad;
  Command CmdExit;

 private:
  void Choose(std::string_view viewer);
};

}  // namespace kalvo

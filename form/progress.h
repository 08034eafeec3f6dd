#pragma once

#include "form/control.h"

namespace kalvo {

/// How far work has come, as a part of its whole.
class Progress : public Control {
 public:
  using Control::Control;

  int done = 0;
  int total = 0;  ///< 0: nobody knows
};

}  // namespace kalvo

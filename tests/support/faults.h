#pragma once

#include <utility>

#include "study/fault.h"

namespace kalvo {

/// Number of the fault that `act` ends in, 0 when it ends well.
template <typename Act>
int FaultOf(Act&& act) {
  try {
    static_cast<void>(std::forward<Act>(act)());
  } catch (const Fault& fault) {
    return fault.number();
  }
  return 0;
}

}  // namespace kalvo

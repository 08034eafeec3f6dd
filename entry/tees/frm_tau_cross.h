#pragma once

#include "entry/tees/frm_tau_cross_s.h"

namespace kalvo {

/// The same beside the section form.
class FrmTauCross : public FrmTauCross_S {
 public:
  explicit FrmTauCross(Desk& shared_desk) : FrmTauCross_S(shared_desk, screen::kFormTees) {}
};

}  // namespace kalvo

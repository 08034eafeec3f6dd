#pragma once

#include "study/prompter.h"

namespace kalvo {

// What a calculation says to its user while it runs; the numbered messages are in message_codes.h.

/// The box that tells of a run-time fault of this number; code 1 asks whether to go on.
Box CalcErrorBox(int code);

/// The box for a viscosity that was given for another mean temperature than the study's.
Box FluidMisfitBox();

}  // namespace kalvo

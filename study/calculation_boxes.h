#pragma once

#include "study/prompter.h"
#include "study/result.h"

namespace kalvo {

// What a calculation says to its user while it runs; the numbered messages are in message_codes.h.

/// The box that tells of a run-time fault of this number; code 1 asks whether to go on.
Box CalcErrorBox(int code);

/// The box for a viscosity that was given for another mean temperature than the study's.
Box FluidMisfitBox();

/// The box for results of a winter duty that hold no longer and could not be emptied.
Box StaleWinterBox(const FileError& error);

}  // namespace kalvo

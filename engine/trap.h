#pragma once

#include "study/fault.h"
#include "study/workbench.h"

namespace kalvo {

/// The box that tells the user of a run-time fault; code 1 asks whether to go on.
Box CalcErrorBox(int code);

/// Writes a run-time fault of a pass down, tells the user with what is known of it, and ends the
/// run: `CalcStatus` becomes -32, the answer is cleared and `failed_row` names the fault's row.
/// Code 1 asks first; on yes nothing else happens.
void ReportCalcError(Workbench& bench, const Fault& fault);

/// Runs a pass so that a fault in it is reported and ends the run.
template <typename Pass>
void RunTrapped(Workbench& bench, Pass&& pass) {
  try {
    pass();
  } catch (const Fault& fault) {
    ReportCalcError(bench, fault);
  }
}

}  // namespace kalvo

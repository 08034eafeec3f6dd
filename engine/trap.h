#pragma once

#include <optional>

#include "study/fault.h"
#include "study/workbench.h"

namespace kalvo {

/// Writes a run-time fault of a pass down and shows what is known of it. Gives the
/// fault that ends the run; `failed_row` then names its row. Code 1 asks first: nothing on yes.
std::optional<FaultNote> ReportCalcError(Workbench& bench, const Fault& fault);

/// Runs a pass so that a fault in it is reported, and gives the one that ends the run.
template <typename Pass>
std::optional<FaultNote> RunTrapped(Workbench& bench, Pass&& pass) {
  try {
    pass();
    return std::nullopt;
  } catch (const Fault& fault) {
    return ReportCalcError(bench, fault);
  }
}

}  // namespace kalvo

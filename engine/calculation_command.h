#pragma once

#include "engine/driver.h"

namespace kalvo {

/// How the calculation command ended.
enum class CommandEnd {
  kRefused,     ///< by the gate, with its message
  kLost,        ///< the network cannot be walked (message 2004 was shown)
  kFindings,    ///< the names are wrong: the list stands in `ERRORS.TMP`
  kCapacity,    ///< the user did not go on with pipes that do not suffice
  kViscosity,   ///< the fluid does not fit the study's temperature
  kBrokenOff,   ///< by a run-time fault
  kCancelled,   ///< no new run was wanted, nor the old results
  kShowOld,     ///< the results there are wanted as they stand
  kCalculated,  ///< new results stand in the rows
};

/// True when row 1 carries results: total flow and drop both non-zero.
bool HasResults(const std::vector<SectionRow>& rows);

/// The calculation command for a closed system, by either method: the gate, the question about
/// existing results, flow report, node check, capacity, rebuild of the emitters, run. A study with
/// results is calculated as its rows stand.
CommandEnd CalculateClosed(Workbench& bench, Method method);

}  // namespace kalvo

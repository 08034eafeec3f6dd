#pragma once

#include <functional>

#include "engine/driver.h"

namespace kalvo {

/// How the calculation command ended.
enum class CommandEnd {
  kRefused,     ///< by the gate, with its message
  kLost,        ///< the network cannot be walked (message 2004 was shown)
  kFindings,    ///< the names are wrong: the list stands in `ERRORS.TMP`
  kFeeders,     ///< as kFindings, by the gate of an open system; message 11 comes behind the list
  kCapacity,    ///< the user did not go on with pipes that do not suffice
  kViscosity,   ///< the fluid does not fit the study's temperature
  kBrokenOff,   ///< by a run-time fault
  kCancelled,   ///< no new run was wanted, nor the old results; or no run was chosen
  kShowOld,     ///< the results there are wanted as they stand
  kCalculated,  ///< new results stand in the rows
};

/// True when row 1 carries results: total flow and drop both non-zero. They may be stale; see
/// `results_valid`.
bool HasResults(const std::vector<SectionRow>& rows);

/// The runs that a calculation can end with, one of which is to be made.
struct CalculationRuns {
  std::function<void(Method)> by_method;  ///< every pipe is sized
  std::function<void()> keeping_pipes;    ///< a row that has a pipe keeps it
};
/// Chooses a run and calls it; no call when the choice was closed.
using ChooseRun = std::function<void(const CalculationRuns& runs)>;

/// The calculation command: the gate, the question about existing results, checks of the network,
/// capacity, choice of the run, run. A study with results is calculated as its rows stand.
/// Closed: flow report and node check before, rebuild of the emitters after the capacity question.
/// Open: check of feeders by name, sum of the outlets' flows, check of the feeders' use.
CommandEnd Calculate(Workbench& bench, const ChooseRun& choose);

/// The same by a given method.
CommandEnd Calculate(Workbench& bench, Method method);

}  // namespace kalvo

#pragma once

#include <functional>

#include "engine/critical.h"
#include "engine/sizing.h"
#include "study/workbench.h"

namespace kalvo {

/// How a run ended.
enum class RunEnd {
  kCalculated,
  kViscosity,  ///< the fluid does not fit, nothing was calculated
  kBrokenOff,  ///< by a run-time fault
};

/// First step of every run: the study's values into every row, results cleared.
void ResetCalcFields(Study& study, RowTable& rows);

/// The passes of a run in their order on the rows of the study, read once and written once: reset,
/// sizing, critical branch (with balancing in the second method; in a closed system not for a
/// single section, which is closed instead), then statistics. Once the rows are written the results
/// are no longer valid; where they cannot be written the study's values stay, too. Broken off:
/// `CalcAborted` is set and the rows are written as far as they came. The design velocity stays.
/// A run that ends well deletes `DATARES.PRV` and `DATARES.@@@`, whose rows it has replaced.
RunEnd RunPasses(Workbench& bench, Method method);

/// The same with the pipes that the rows have: only a row without a diameter, or with one that the
/// pipe system has not, is sized. Nothing is balanced; the method recorded in row 1 stays.
RunEnd RunKeepingPipes(Workbench& bench);

/// The automatic run. A closed system always takes the first method, an open one that of its last
/// run.
RunEnd RunCalculation(Workbench& bench);

/// True when the rows are one section named "ANT/ANT".
bool IsLoneSection(const std::vector<SectionRow>& rows);

/// For a lone section: total flow, drop and pump head from the row itself, critical branch "1".
/// Any other network stays as it is.
void CloseSingleSection(Study& study, RowTable& rows);

/// The pass after the sizing: critical branch and pressures of the kind of system, with balancing
/// in the second method; a single section is closed instead.
void FindPressures(Study& study, RowTable& rows, const PassConditions& pass, Method method,
                   const NotePostponed& note);

/// Runs `work` on the rows of the study, which are written once afterwards, after a fault as well;
/// then `written`. Where they cannot be written the study's values are what they were. Faults:
/// those of `work`, kFile.
void ChangeRows(Workbench& bench, const std::function<void(RowTable& rows)>& work,
                const std::function<void()>& written);

/// Finds the `critical branch` of results as they stand in the rows, which a study's file does not
/// tell: from the stored drops, after a balancing from rows sized anew in memory, as long as these
/// come to the drop that the rows announce. No row is written and nothing is told. False: there is
/// no such branch, or a fault kept it from being found and the study's stays as it was.
bool RefindCriticalBranch(Workbench& bench);
/// The same for rows in memory.
bool RefindCriticalBranch(Workbench& bench, const RowTable& rows);

}  // namespace kalvo

#pragma once

#include <functional>
#include <span>
#include <vector>

#include "engine/driver.h"

namespace kalvo {

/// Whether a nominal diameter differs between the rows and those kept in the work file `older`,
/// trimmed, case counts. False when the older file is missing or empty. Error: a file cannot be
/// read.
Result<bool> DiametersDiffer(const Workspace& workspace, std::string_view older);

/// Whether a row has another diameter than the one that its results are for: no re-run has followed
/// the change yet. The rows of the last re-run tell, without them those from before the change,
/// without them the first of the session; which cannot be read leaves it to a re-run.
/// Error: the rows cannot be read.
Result<bool> ChangeWaits(const Workspace& workspace);

/// The same row by row: those of `rows` whose change waits. Which cannot be told counts as "no".
std::vector<bool> WaitingRows(const Workspace& workspace, std::span<const SectionRow> rows);

/// The run on the diameters that the rows have, overruled ones (negative) included: no pipe choice,
/// no balancing, the method recorded stays. Quantities anew; a row that came back to the diameter
/// of `FIRSTONE.TMP` gets the mark that it has there, and once no nominal diameter differs from
/// that file its results stand again; the rows become `DATARES.PRV`. Unless it ends in kCalculated
/// `DATARES.PRV` stays and a new calculation is needed.
RunEnd Rerun(Workbench& bench);

/// The same on rows that `change` changes first. Change and results are written at once, so that
/// whatever happens the rows are those from before or those from after; where they cannot be
/// written the study keeps its results. A run that the fluid or a fault ends leaves the rows
/// changed.
RunEnd RerunChanged(Workbench& bench, const std::function<void(RowTable& rows)>& change);

/// Rerun() if a diameter changed since `DATARES.PRV` was written, or the run after a change failed,
/// marking the study changed.
/// Gives whether it ran. Error: a file cannot be read.
Result<bool> RerunIfChanged(Workbench& bench);

/// The re-run must not start while a row has no diameter yet.
bool HasAllDiameters(const std::vector<SectionRow>& rows);

}  // namespace kalvo

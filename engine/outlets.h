#pragma once

#include <vector>

#include "engine/row_store.h"

namespace kalvo {

/// Outlets of an open network. They are not entered by hand: every section that feeds no other is
/// one, and for each the user gives flow, flow pressure and height.

/// Values of one outlet.
struct OutletValues {
  float flow_lh = 0;
  float pressure_m = 0;  ///< flow pressure, m w.g.
  float height_m = 0;    ///< above the pump
};

/// The feeder's name as a number; 0 for "ANT" and other texts.
double FeederNumber(const FixedText<7>& name);

/// Numbers of the rows that feed no other row, in row order. Feeders are taken as numbers; "ANT"
/// counts for no row.
std::vector<int> FindOutlets(const std::vector<SectionRow>& rows);

/// Rows that have the flow pressure of an outlet and feed others now: EndOutlets() takes it away.
/// Faults: kFile.
std::vector<SectionRow> FormerOutlets(const Workspace& workspace);

/// Lists the outlets found, each with the values that its row has, else with those that
/// `SOMATA.TMP` knew for its name (none for a row that was no outlet yet), writes that file where
/// it says otherwise, and sets `EmitterCount`. A first list of a single outlet marks the study
/// changed. Faults: kFile.
std::vector<SectionRow> ListOutlets(Workbench& bench);

/// Stores the values of outlet `index` (from 1) of `SOMATA.TMP`, there and on its section's row.
/// Values that they have already are not written.
/// Faults: kFile, 63 for an outlet or a section that is not there.
void StoreOutlet(Workbench& bench, int index, const OutletValues& values);

/// Ends the entry of outlets that began with the list `opened`: rows take flow, pressure and height
/// from `SOMATA.TMP`, rows without an outlet neither flow nor pressure; `TOT`, `Outlets` and the
/// system's kind go on every row; total flow and tables follow. Other outlets or values than at
/// the beginning, or than the rows know, mark the study changed and its results void; otherwise
/// nothing is written. The outlets count as checked, unless one has no values. Faults: kFile.
void EndOutlets(Workbench& bench, const std::vector<SectionRow>& opened);

/// Breaks that entry off: the outlets count as unchecked; the study is marked as by EndOutlets().
/// Faults: kFile.
void LeaveOutletsUnchecked(Workbench& bench, const std::vector<SectionRow>& opened);

/// The outlet has a flow and a flow pressure.
inline bool HasOutletValues(const SectionRow& outlet) {
  return outlet.WaterFlow != 0 && outlet.SomaDrop != 0;
}

/// Gives every row the flow and pressure of its record in `SOMATA.TMP`, none without one, in
/// `store` only. Returns the records that belong to a row; what the file holds of rows that are no
/// more is passed over. Faults: kFile.
std::vector<SectionRow> CopyOutletsToRows(const Workspace& workspace, RowStore& store);

}  // namespace kalvo

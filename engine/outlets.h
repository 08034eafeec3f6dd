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

/// Writes the outlets found to `SOMATA.TMP`, each with the values that its row has, else with those
/// that the file knew for its name (none for a row that was no outlet yet), and sets
/// `EmitterCount`. A first list of a single outlet marks the study changed. Faults: kFile.
std::vector<SectionRow> ListOutlets(Workbench& bench);

/// Stores the values of outlet `index` (from 1) of `SOMATA.TMP`, there and on its section's row.
/// Values other than the row's mark the study changed and its results void.
/// Faults: kFile, 63 for an outlet or a section that is not there.
void StoreOutlet(Workbench& bench, int index, const OutletValues& values);

/// Ends the entry of outlets: rows take flow, pressure and height from `SOMATA.TMP`, rows without
/// an outlet neither flow nor pressure; `TOT`, `Outlets` and the system's kind go on every row;
/// total flow and tables follow. A count other than the rows' former `Outlets` marks the study
/// changed. Results are void; the outlets count as checked. Faults: kFile.
void EndOutlets(Workbench& bench);

/// Gives every row the flow and pressure of its record in `SOMATA.TMP`, none without one, in
/// `store` only. Returns the records that belong to a row; what the file holds of rows that are no
/// more is passed over. Faults: kFile.
std::vector<SectionRow> CopyOutletsToRows(const Workspace& workspace, RowStore& store);

}  // namespace kalvo

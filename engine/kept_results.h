#pragma once

#include <array>

#include "engine/row_table.h"
#include "study/workbench.h"

namespace kalvo {

/// What a run on given diameters fills in a row, those diameters aside.
inline constexpr std::array kRunResults = {
    &SectionRow::PAR,   &SectionRow::DP,           &SectionRow::Velocity,  &SectionRow::Reynolds,
    &SectionRow::Lamda, &SectionRow::FrictionRate, &SectionRow::TotalDrop, &SectionRow::AvaiPres};

/// Whether both tables have the same nominal diameters row by row, trimmed, case counts.
bool HaveSameDiameters(const RowTable& a, const RowTable& b);

/// Diameters, marks and results of `kept` into `rows`, which are of the same network.
void CopyKeptResults(const RowTable& kept, RowTable& rows);

/// The same; the totals and the critical branch of the study follow. Results of a balancing come
/// back only in this way, since no re-run gives them.
void TakeKeptResults(Workbench& bench, const RowTable& kept, RowTable& rows);

/// Total flow, pump and critical branch of the study from rows that were calculated before.
void FollowResults(Workbench& bench, const RowTable& rows);

}  // namespace kalvo

#pragma once

#include <vector>

#include "study/pipe_row.h"
#include "study/section_row.h"

namespace kalvo {

/// What is worth knowing beside results; no figure depends on it. Section numbers, in row order.
struct ResultNotes {
  std::vector<int> above_design_velocity;
  std::vector<int> on_largest_pipe;
  /// Taken down by the second method, whose own term makes their drop negative.
  std::vector<int> negative_drop;
  /// Outlets whose need exceeds what the pump gives.
  std::vector<int> outlets_in_need;
};

/// How far the pump reaches above what an outlet needs, mm w.g.: its losses from row 1 on, its
/// height and its flow pressure. Below 0 the outlet gets less than it needs.
struct OutletSpare {
  int section = 0;
  double spare = 0;
};

/// Of every outlet of a calculated open network, in row order; none for a closed one.
std::vector<OutletSpare> SparesOf(const std::vector<SectionRow>& rows);

/// Notes of calculated rows; the design velocity is each row's own `MeanVel`.
ResultNotes NotesOf(const std::vector<SectionRow>& rows, const std::vector<PipeRow>& library);

}  // namespace kalvo

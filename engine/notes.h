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
};

/// Notes of calculated rows; the design velocity is each row's own `MeanVel`.
ResultNotes NotesOf(const std::vector<SectionRow>& rows, const std::vector<PipeRow>& library);

}  // namespace kalvo

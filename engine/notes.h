#pragma once

#include <string>
#include <vector>

#include "study/pipe_row.h"
#include "study/study.h"

namespace kalvo {

/// What is worth knowing beside results; no figure depends on it. Section numbers, in row order.
struct ResultNotes {
  std::vector<int> above_design_velocity;
  std::vector<int> on_largest_pipe;
  /// Taken down by the second method, whose own term makes their drop negative.
  std::vector<int> negative_drop;
  /// Outlets whose need exceeds what the pump gives.
  std::vector<int> outlets_in_need;
  /// Sections of an open network that stand before their feeder, whose pressure counts as 0 there.
  std::vector<int> before_feeder;
};

/// How far the pump reaches above what an outlet needs, mm w.g.: its losses from row 1 on, its
/// height and its flow pressure. Below 0 the outlet gets less than it needs.
struct OutletSpare {
  int section = 0;
  double spare = 0;
};

/// Of every outlet of a calculated open network, in row order.
std::vector<OutletSpare> SparesOf(const std::vector<SectionRow>& rows);

/// Notes of the calculated rows of a study of that kind; the design velocity is each row's own
/// `MeanVel`.
ResultNotes NotesOf(SystemKind kind, const std::vector<SectionRow>& rows,
                    const std::vector<PipeRow>& library);

/// Ascending numbers with runs of three or more drawn together: "27-30, 33".
std::string NumberRanges(const std::vector<int>& numbers);

}  // namespace kalvo

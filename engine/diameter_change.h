#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/rerun.h"
#include "study/pipe_row.h"

namespace kalvo {

/// Another pipe of the library for some sections, as the user imposes it.
struct DiameterChange {
  std::vector<int> sections;  ///< their numbers; others than those of rows are passed over
  PipeRow pipe;
};

/// Gives the rows the pipe, marked as imposed by a negative `InDiameter`; how many got another one.
/// A row that has this nominal diameter already stays as it is. One that comes back to its diameter
/// in `first`, the first rows of the session, gets the `InDiameter` that it has there.
int ReplaceDiameters(RowTable& rows, const DiameterChange& change, const RowTable& first);

/// The same on the rows of the study, whose calculation then waits. Gives how many changed; the
/// study is unsaved if any did. Error: a file cannot be read or written, nothing has changed.
Result<int> ReplaceDiameters(Workbench& bench, const DiameterChange& change);

/// A value before and after.
template <typename Value>
struct BeforeAfter {
  Value before{};
  Value after{};

  [[nodiscard]] bool Differs() const { return before != after; }
  bool operator==(const BeforeAfter&) const = default;
};

/// A section in which something differs.
struct ChangedSection {
  int number = 0;
  std::string name;                   ///< trimmed, as are the diameters
  BeforeAfter<std::string> diameter;  ///< nominal
  BeforeAfter<float> velocity;        ///< m/s
  BeforeAfter<float> drop;            ///< mm w.g.
  BeforeAfter<float> pressure;        ///< available behind it, mm w.g., with its sign
};

/// What a change of diameters comes to.
struct ResultComparison {
  BeforeAfter<float> flow;                   ///< of the pump, m³/h
  BeforeAfter<double> head;                  ///< of the pump, m w.g.
  BeforeAfter<std::string> critical_branch;  ///< as in the study
  BeforeAfter<double> fluid_content;         ///< m³
  std::vector<ChangedSection> sections;
};

/// Calculated rows with their critical branch, one side of a comparison.
struct ComparedRows {
  const RowTable& rows;
  std::string critical_branch;
};

/// Compares rows of one network, section by section. A diameter that no row of the library bears
/// has the content of its last one, as in the quantities.
ResultComparison CompareResults(const ComparedRows& before, const ComparedRows& after,
                                const std::vector<PipeRow>& library);

/// How a change ended, and what it came to once it was calculated.
struct ChangeOutcome {
  RunEnd end = RunEnd::kCalculated;
  int replaced = 0;  ///< 0: every section had the diameter, nothing was calculated
  std::optional<ResultComparison> comparison;  ///< nothing unless there are results after it
};

/// ReplaceDiameters() for each change, the re-run on the new diameters and the comparison. The rows
/// are written once, with their results; then `STATIST.TMP` and `DATARES.PRV` (RerunChanged()).
ChangeOutcome ChangeDiameters(Workbench& bench, const std::vector<DiameterChange>& changes);

}  // namespace kalvo

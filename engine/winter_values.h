#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "study/workbench.h"

namespace kalvo {

/// Winter values of one emitter; a flow or drop of 0 is not known yet.
struct WinterLine {
  int section = 0;
  float length_m = 0;  ///< of its section
  float flow_lh = 0;
  float drop = 0;  ///< mm w.g.

  bool operator==(const WinterLine&) const = default;
};

/// What a winter duty is calculated with: a line for each emitter, in the order of `SOMATA.TMP`.
struct WinterValues {
  float temperature = 0;  ///< mean temperature, °C
  std::vector<WinterLine> lines;

  bool operator==(const WinterValues&) const = default;
};

/// The winter's mean temperature where nobody has said another, °C.
constexpr float kUsualWinterTemp = 70.0F;

/// Emitters of the study with summer's values, where the winter's entry starts from. Faults: kFile.
std::vector<WinterLine> SummerValues(const Workbench& bench);

/// The values that the winter rows in the work file tell: of a run, or as they were entered. After
/// a run the row of a section that leads on to other emitters holds a sum: the emitter's own flow
/// is not known then. Of a network that was another one then, rows are found by their names; an
/// emitter that has none keeps summer's length and nothing else. Nothing: there are no such rows.
/// Faults: kFile, 5 for a network that is too large.
std::optional<WinterValues> WinterValuesIn(const Workbench& bench, std::string_view work_name);

/// Winter rows that hold the values and no results, of the study's rows. Faults: kBadRecordNumber.
std::vector<SectionRow> RowsOfWinterValues(std::vector<SectionRow> rows,
                                           const WinterValues& values);

/// Empties the results in `WINTCIRC.TMP`, where the pipes or flows that they came from have
/// changed; its flows, drops and lengths stay. Error: the file cannot be read or written.
Outcome EmptyWinterResults(Workspace& workspace);

}  // namespace kalvo

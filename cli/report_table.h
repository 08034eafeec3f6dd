#pragma once

#include "cli/console.h"
#include "results/study_report.h"

namespace kalvo {

/// The results as an engineer reads them: pump, critical branch, a line per section with those of
/// the critical branch marked, pipes and fittings, water content, notes.
void PrintReport(const Console& console, const StudyReport& report, PressureUnits units);

/// The bill of pipes and fittings of the sizes in use, and the content of water.
void PrintQuantities(const Console& console, const StudyReport& report);

/// A heading line: its label padded to a column, its text wrapped behind it.
void PrintFact(const Console& console, std::string label, const std::string& text);

}  // namespace kalvo

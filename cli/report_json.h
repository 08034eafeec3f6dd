#pragma once

#include <string>
#include <vector>

#include "results/study_report.h"

namespace kalvo {

/// The whole of each report as JSON, units in the keys: an array, or a lone report by itself. What
/// is no UTF-8 in the name of a file comes out as U+FFFD.
std::string JsonText(const std::vector<StudyReport>& reports, PressureUnits units, bool as_array);

/// The quantities of a report as JSON, with the same keys.
std::string QuantitiesJsonText(const StudyReport& report);

}  // namespace kalvo

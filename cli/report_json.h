#pragma once

#include <nlohmann/json.hpp>

#include "cli/study_report.h"

namespace kalvo {

/// The whole report as JSON; units stand in the keys.
nlohmann::ordered_json JsonOf(const StudyReport& report, PressureUnits units);

}  // namespace kalvo

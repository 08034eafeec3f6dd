#pragma once

#include <filesystem>
#include <string>

#include "study/method.h"

namespace kalvo {

/// Calculates the study of the file `study` by `method` and gives its results as CSV: a
/// comment line "PAR=... DP=... PumpHead=... critical=1 2 ...", the columns' names, which are those
/// of the row's fields, and a line for each section. Errors: std::runtime_error when the study
/// cannot be loaded or calculated.
std::string CalculatedTable(const std::filesystem::path& library,
                            const std::filesystem::path& study, Method method);

}  // namespace kalvo

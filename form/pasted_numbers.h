#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "study/numeric_text.h"

namespace kalvo {

/// A copied block line by line, each line by its cells; lines without any text are left out.
struct PastedLine {
  int number = 0;  ///< of the line in the block, from 1
  std::vector<std::string> cells;
};
std::vector<PastedLine> PastedLines(std::string_view text);

/// True when the numbers do not tell what their sign parts: where there is one it is the user's
/// thousands sign, once and before exactly three digits.
bool IsDoubtful(const std::vector<std::string>& numbers, Separators separators);

/// The number that a cell holds, not below zero; nothing for any other text. Of two different signs
/// the last is the decimal one, one that is there several times parts thousands, one that is there
/// once is the decimal one, or with `thousands` the user's thousands sign.
std::optional<double> PastedNumber(std::string_view cell, bool thousands, Separators separators);

}  // namespace kalvo

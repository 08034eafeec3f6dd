#pragma once

#include <optional>
#include <string>

#include "study/numeric_text.h"

namespace kalvo {

/// `value` with so many decimals, thousands grouped: one below the other the digits stand in line.
/// A 32-bit value is rounded on its own decimal text.
std::string WithDecimals(float value, int decimals, const Separators& separators);
std::string WithDecimals(double value, int decimals, const Separators& separators);

/// The same for a value that stands alone; one that would lose its digits keeps them all.
std::string WithEnoughDecimals(float value, int decimals, const Separators& separators);

/// A number typed or written by a user: all of the text is it, with "." or "," before its decimals
/// and no thousands separator. Nothing for any other text and outside 32 bits.
std::optional<float> PlainNumber(std::string text);

}  // namespace kalvo

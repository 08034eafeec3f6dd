#pragma once

#include <optional>
#include <string>

namespace kalvo {

/// A number typed or written by a user: all of the text is it, with "." or "," before its decimals
/// and no thousands separator. Nothing for any other text and outside 32 bits.
std::optional<float> PlainNumber(std::string text);

/// The value whose shortest decimal reads back to that 32-bit one, as it is written in JSON.
double PlainValue(float value);

}  // namespace kalvo

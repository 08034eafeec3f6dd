#include "cli/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kalvo {

std::string WithDecimals(float value, int decimals, const Separators& separators) {
  return FormatPattern(value, pattern::Decimals(decimals), separators);
}

std::string WithDecimals(double value, int decimals, const Separators& separators) {
  return FormatPattern(value, pattern::Decimals(decimals), separators);
}

std::string WithEnoughDecimals(float value, int decimals, const Separators& separators) {
  const bool small = std::fabs(static_cast<double>(value)) < std::pow(10.0, 1 - decimals);
  const std::string fixed = WithDecimals(value, decimals, separators);
  const std::string whole = FormatNumber(value, separators);
  return small && whole.size() > fixed.size() ? whole : fixed;
}

std::optional<float> PlainNumber(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  float value = 0;
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, value);
  const bool whole = read.ec == std::errc() && read.ptr == end && std::isfinite(value);
  return whole ? std::optional(value) : std::nullopt;
}

}  // namespace kalvo

#include "cli/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace kalvo {

std::optional<float> PlainNumber(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  float value = 0;
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, value);
  const bool whole = read.ec == std::errc() && read.ptr == end && std::isfinite(value);
  return whole ? std::optional(value) : std::nullopt;
}

double PlainValue(float value) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  double plain = 0;
  std::from_chars(buffer.data(), end, plain);
  return plain;
}

}  // namespace kalvo

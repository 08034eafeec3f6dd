#pragma once

#include <string>
#include <string_view>

namespace kalvo {

/// `utf8` in lower case: Latin letters and Greek ones, accents kept, final sigma as sigma.
std::string LowerCase(std::string_view utf8);

/// Equal but for the case of Latin and Greek letters.
inline bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return LowerCase(a) == LowerCase(b);
}

}  // namespace kalvo

#include "study/letter_case.h"

#include <array>
#include <utility>

#include "study/codepage.h"

namespace kalvo {

namespace {

// Greek capitals with accents, whose small letters stand at no fixed distance.
constexpr std::array<std::pair<char32_t, char32_t>, 7> kAccented = {{
    {0x0386, 0x03AC},
    {0x0388, 0x03AD},
    {0x0389, 0x03AE},
    {0x038A, 0x03AF},
    {0x038C, 0x03CC},
    {0x038E, 0x03CD},
    {0x038F, 0x03CE},
}};

char32_t Lower(char32_t c) {
  if ((c >= 'A' && c <= 'Z') || (c >= 0x0391 && c <= 0x03AB)) {
    return c + 0x20;
  }
  if (c == 0x03C2) {
    return 0x03C3;
  }
  for (const auto& [capital, small] : kAccented) {
    if (c == capital) {
      return small;
    }
  }
  return c;
}

}  // namespace

std::string LowerCase(std::string_view utf8) {
  std::string lower;
  while (!utf8.empty()) {
    AppendUtf8(lower, Lower(TakeCharacter(utf8)));
  }
  return lower;
}

}  // namespace kalvo

#include "platform/xls/sheet_password.h"

#include <algorithm>
#include <string>

#include "study/codepage.h"

namespace kalvo {

namespace {

constexpr std::size_t kMostPasswordBytes = 15;

// Turns the lower 15 bits by one to the left.
constexpr unsigned TurnLeft(unsigned hash) {
  return ((hash >> 14U) & 1U) | ((hash << 1U) & 0x7FFFU);
}

}  // namespace

std::uint16_t SheetPasswordHash(std::string_view password) {
  std::string bytes = ToCodePage(password);
  bytes.resize(std::min(bytes.size(), kMostPasswordBytes));
  if (bytes.empty()) return 0;
  unsigned hash = 0;
  for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
    hash = TurnLeft(hash ^ static_cast<unsigned char>(*byte));
  }
  return static_cast<std::uint16_t>(hash ^ bytes.size() ^ 0xCE4BU);
}

}  // namespace kalvo

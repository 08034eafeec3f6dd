#include "shell/proposed_name.h"

namespace kalvo {

namespace {

constexpr std::size_t kLongest = 200;  // bytes; names may have 255
constexpr std::string_view kBlanksAndDots = " .";

bool MayStand(char byte) {
  constexpr std::string_view kKept = "/\\:*?\"<>|\x7F";
  return static_cast<unsigned char>(byte) >= ' ' && kKept.find(byte) == std::string_view::npos;
}

// Not in the middle of a character.
void CutTo(std::string& text, std::size_t length) {
  constexpr auto kFollows = [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
  };
  if (text.size() <= length) return;
  while (length > 0 && kFollows(text[length])) --length;
  text.resize(length);
}

}  // namespace

std::string ProposedName(std::string_view title) {
  std::string name;
  for (const char byte : title) {
    const char next = MayStand(byte) ? byte : ' ';
    if (next != ' ' || (!name.empty() && name.back() != ' ')) name += next;
  }
  CutTo(name, kLongest);
  name.erase(name.find_last_not_of(kBlanksAndDots) + 1);
  name.erase(0, name.find_first_not_of(kBlanksAndDots));
  return name;
}

}  // namespace kalvo

#pragma once

#include <string>
#include <string_view>

namespace kalvo {

/// An accent that goes into the letter before it.
constexpr bool IsMark(char32_t character) { return character >= 0x300 && character < 0x370; }

/// `utf8` with accents that follow their letter as marks of their own put into the letter:
/// Greek with tonos and dialytika, and the Latin letters of Western Europe. What has a twin in
/// Unicode, such as the vowels of a polytonic keyboard, gets its usual form. File systems, programs
/// and keyboards differ in the form they write texts in.
/// Source: The Unicode Standard, canonical composition (NFC).
std::string ComposedForm(std::string_view utf8);

}  // namespace kalvo

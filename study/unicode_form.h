#pragma once

#include <string>
#include <string_view>

namespace kalvo {

/// `utf8` with accents that stand behind their letter as marks of their own put into the letter:
/// Greek with tonos and dialytika, and the Latin letters of Western Europe. What has a twin in
/// Unicode, such as the vowels of a polytonic keyboard, gets its usual form. File systems, programs
/// and keyboards differ in the form they write texts in.
/// Source: The Unicode Standard, canonical composition (NFC).
std::string ComposedForm(std::string_view utf8);

}  // namespace kalvo

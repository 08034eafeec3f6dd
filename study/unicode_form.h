#pragma once

#include <string>
#include <string_view>

namespace kalvo {

/// `utf8` with accents that stand behind their letter as marks of their own put into the letter:
/// Greek with tonos and dialytika, and the Latin letters of Western Europe. File systems and
/// programs differ in the form they write names in.
/// Source: The Unicode Standard, canonical composition (NFC).
std::string ComposedForm(std::string_view utf8);

}  // namespace kalvo

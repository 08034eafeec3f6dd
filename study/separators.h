#pragma once

namespace kalvo {

/// The decimal and thousands separators of the user's region.
struct Separators {
  char decimal = ',';
  char thousands = '.';

  bool operator==(const Separators&) const = default;
};

/// Separators of the process's locale settings (LC_ALL, LC_NUMERIC, LANG). No grouping, or one
/// that is a blank, an apostrophe or several bytes: the thousands separator is the other one of
/// "." and ",". C and POSIX locales count as Greek.
Separators DetectSeparators();

/// The separators a calculation works with: a "," or "." decimal becomes ".", a "." or ","
/// thousands becomes ",". The bracket is a scope: what is changed is a copy.
Separators ForceDotDecimal(Separators separators);

}  // namespace kalvo

#include "study/separators.h"

#include <langinfo.h>
#include <locale.h>

#include <cstdlib>
#include <string>
#include <string_view>

namespace kalvo {

namespace {

bool IsPlainSeparator(std::string_view text) {
  // One byte of a code page may be a blank, too.
  constexpr std::string_view kMarks = ".,;:_-/";
  return text.size() == 1 && kMarks.find(text.front()) != std::string_view::npos;
}

}  // namespace

Separators DetectSeparators() {
  const auto other = [](char decimal) { return decimal == '.' ? ',' : '.'; };
  const char* name = nullptr;
  for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
    if (name == nullptr || *name == '\0') {
      name = std::getenv(variable);
    }
  }
  const std::string_view locale = name == nullptr ? "" : name;
  if (locale.empty() || locale == "C" || locale == "POSIX" || locale.starts_with("C.")) {
    return {};
  }
  locale_t regional = newlocale(LC_NUMERIC_MASK, name, nullptr);
  if (regional == nullptr) {
    return {};
  }
  const std::string decimal = nl_langinfo_l(RADIXCHAR, regional);
  const std::string thousands = nl_langinfo_l(THOUSEP, regional);
  freelocale(regional);
  Separators separators;
  separators.decimal = IsPlainSeparator(decimal) ? decimal.front() : ',';
  separators.thousands = IsPlainSeparator(thousands) && thousands != decimal
                             ? thousands.front()
                             : other(separators.decimal);
  return separators;
}

Separators ForceDotDecimal(Separators separators) {
  const auto is_usual = [](char c) { return c == ',' || c == '.'; };
  return {is_usual(separators.decimal) ? '.' : separators.decimal,
          is_usual(separators.thousands) ? ',' : separators.thousands};
}

}  // namespace kalvo

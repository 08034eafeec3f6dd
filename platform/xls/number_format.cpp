#include "platform/xls/number_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

#include "study/letter_case.h"
#include "study/numeric_text.h"

namespace kalvo {

namespace {

constexpr int kGeneralDigits = 10;         // beside the decimal separator
constexpr double kGeneralEnd = 1e11;       // from here on with an exponent
constexpr double kGeneralSmallest = 1e-4;  // below, with an exponent when it does not fit

bool IsDigitPlace(char c) { return c == '0' || c == '#' || c == '?'; }

// How many bytes of `rest` belong together as one thing that is no pattern: a text in quotes, a
// character after "\", "_" or "*", a bracket. 0: it begins with none of them.
std::size_t LiteralLength(std::string_view rest) {
  const char first = rest.front();
  if (first == '"' || first == '[') {
    const std::size_t end = rest.find(first == '"' ? '"' : ']', 1);
    return end == std::string_view::npos ? rest.size() : end + 1;
  }
  if (first != '\\' && first != '_' && first != '*') return 0;
  std::size_t length = std::min<std::size_t>(2, rest.size());
  while (length < rest.size() && (static_cast<unsigned char>(rest[length]) & 0xC0U) == 0x80) {
    ++length;
  }
  return length;
}

std::vector<std::string_view> SectionsOf(std::string_view format) {
  std::vector<std::string_view> sections;
  std::size_t begin = 0;
  std::size_t at = 0;
  while (at < format.size()) {
    const std::size_t literal = LiteralLength(format.substr(at));
    if (literal == 0 && format[at] == ';') {
      sections.push_back(format.substr(begin, at - begin));
      begin = at + 1;
    }
    at += std::max<std::size_t>(literal, 1);
  }
  sections.push_back(format.substr(begin));
  return sections;
}

// What a literal shows.
std::string_view ShownOf(std::string_view literal) {
  switch (literal.front()) {
    case '"': {
      literal.remove_prefix(1);
      if (literal.ends_with('"')) literal.remove_suffix(1);
      return literal;
    }
    case '\\':
      return literal.substr(1);
    case '_':
      return " ";
    default:
      return {};
  }
}

// A section taken apart: texts around one pattern of digits.
struct FormatSection {
  std::string before;
  std::string pattern;
  std::string after;
  int hundredfold = 0;      // how many "%"
  bool is_general = false;  // nothing of digits that is known
  bool has_text = false;    // "@"
};

bool IsDateOrPower(char c) {
  return std::string_view("dDmMyYhHsSeE/").find(c) != std::string_view::npos;
}

FormatSection ReadSection(std::string_view text) {
  FormatSection section;
  std::string* literals = &section.before;
  while (!text.empty()) {
    if (text.size() >= 7 && EqualIgnoringCase(text.substr(0, 7), "general")) {
      section.is_general = true;
      literals = &section.after;
      text.remove_prefix(7);
      continue;
    }
    const std::size_t length = std::max<std::size_t>(LiteralLength(text), 1);
    const char c = text.front();
    if (LiteralLength(text) > 0) {
      *literals += ShownOf(text.substr(0, length));
    } else if (IsDigitPlace(c) || ((c == '.' || c == ',') && literals == &section.after) ||
               (c == '.' && text.size() > 1 && IsDigitPlace(text[1]))) {
      section.pattern += c == '?' ? '#' : c;
      literals = &section.after;
    } else if (c == '@') {
      section.has_text = true;
      literals = &section.after;
    } else if (IsDateOrPower(c)) {
      return {{}, {}, {}, 0, true, false};
    } else {
      section.hundredfold += c == '%' ? 1 : 0;
      *literals += c;
    }
    text.remove_prefix(length);
  }
  return section;
}

// Text with the exponent: at most six digits.
std::string WithExponent(double value, Separators separators) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::scientific, 5);
  std::string text(buffer.data(), end.ptr);
  const std::size_t e = text.find('e');
  std::string digits = text.substr(0, e);
  while (digits.ends_with('0')) digits.pop_back();
  if (digits.ends_with('.')) digits.pop_back();
  return FormatNumber(digits, separators) + "E" + text.substr(e + 1);
}

std::string General(double value, Separators separators) {
  const double size = std::abs(value);
  if (size >= kGeneralEnd) return WithExponent(value, separators);
  if (size > 0 && size < kGeneralSmallest &&
      NumberText(size).size() > std::size_t{kGeneralDigits} + 1) {
    return WithExponent(value, separators);
  }
  const int whole = size < 1 ? 1 : static_cast<int>(std::floor(std::log10(size))) + 1;
  const int decimals = std::max(kGeneralDigits - whole, 0);
  return FormatPattern(value, "0." + std::string(static_cast<std::size_t>(decimals), '#'),
                       separators);
}

// "," behind the last digit counts in thousands, one before it groups.
double TakeThousands(double value, std::string& pattern) {
  const std::size_t last = pattern.find_last_of("0#");
  const std::size_t point = pattern.find('.');
  std::size_t at = last + 1;
  while (at < pattern.size() && pattern[at] == ',') {
    value /= 1000;
    pattern.erase(at, 1);
  }
  if (point != std::string::npos) std::erase(pattern, ' ');
  return value;
}

std::string Shown(double value, const FormatSection& section, bool with_sign,
                  Separators separators) {
  double size = std::abs(value);
  for (int i = 0; i < section.hundredfold; ++i) size *= 100;
  std::string digits;
  if (section.is_general || (section.has_text && section.pattern.empty())) {
    digits = General(size, separators);
  } else if (!section.pattern.empty()) {
    std::string pattern = section.pattern;
    size = TakeThousands(size, pattern);
    digits = FormatPattern(size, pattern, separators);
  }
  // A number that shows as nothing but zeros has no sign.
  const bool is_zero = digits.find_first_of("123456789") == std::string::npos;
  const bool minus = with_sign && value < 0 && !is_zero;
  return (minus ? "-" : "") + section.before + digits + section.after;
}

}  // namespace

std::string NumberByFormat(double value, std::string_view format, Separators separators) {
  if (!std::isfinite(value)) return {};
  const std::vector<std::string_view> sections = SectionsOf(format);
  if (value < 0 && sections.size() > 1) {
    return Shown(value, ReadSection(sections[1]), false, separators);
  }
  if (value == 0 && sections.size() > 2) {
    return Shown(value, ReadSection(sections[2]), false, separators);
  }
  FormatSection section = ReadSection(sections[0]);
  section.is_general = section.is_general || format.empty();
  return Shown(value, section, true, separators);
}

std::string TextByFormat(std::string_view text, std::string_view format) {
  const std::vector<std::string_view> sections = SectionsOf(format);
  const FormatSection section = ReadSection(sections.size() > 3 ? sections[3] : sections[0]);
  if (!section.has_text && sections.size() <= 3) return std::string(text);
  return section.before + (section.has_text ? std::string(text) : std::string()) + section.after;
}

}  // namespace kalvo

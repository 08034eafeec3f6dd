#include "platform/xls/page_text.h"

#include <algorithm>

namespace kalvo {

namespace {

bool IsDigitCharacter(char c) { return c >= '0' && c <= '9'; }

// How many bytes a code has after its "&": a font's name is in quotes, its size in digits.
std::size_t CodeLength(std::string_view code) {
  if (code.starts_with('"')) return std::min(code.find('"', 1), code.size() - 1) + 1;
  const auto digits =
      static_cast<std::size_t>(std::ranges::find_if_not(code, IsDigitCharacter) - code.begin());
  return std::max<std::size_t>(digits, 1);
}

}  // namespace

PageText ReadPageText(std::string_view codes, int page, int pages, std::string_view sheet) {
  PageText text;
  std::string* part = &text.centre;
  while (!codes.empty()) {
    if (codes.front() != '&' || codes.size() == 1) {
      *part += codes.front();
      codes.remove_prefix(1);
      continue;
    }
    codes.remove_prefix(1);
    switch (codes.front()) {
      case 'L':
        part = &text.left;
        break;
      case 'C':
        part = &text.centre;
        break;
      case 'R':
        part = &text.right;
        break;
      case 'P':
        *part += std::to_string(page);
        break;
      case 'N':
        *part += std::to_string(pages);
        break;
      case 'A':
        *part += sheet;
        break;
      case '&':
        *part += '&';
        break;
      default:
        break;
    }
    codes.remove_prefix(CodeLength(codes));
  }
  return text;
}

}  // namespace kalvo

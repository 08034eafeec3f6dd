#include "cli/csv_cell.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kalvo {

char CellEnd(Separators separators) { return separators.decimal == ',' ? ';' : ','; }

std::string CsvText(std::string text, char cell_end) {
  const auto needs_quotes = [cell_end](char c) {
    return c == cell_end || c == '"' || c == '\n' || c == '\r';
  };
  if (std::none_of(text.begin(), text.end(), needs_quotes)) {
    return text;
  }
  std::string quoted = "\"";
  for (const char c : text) {
    quoted.append(c == '"' ? 2 : 1, c);
  }
  return quoted + "\"";
}

std::string CsvNumber(float value, char decimal) {
  std::array<char, 64> buffer{};
  char* end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed)
          .ptr;
  std::replace(buffer.data(), end, '.', decimal);
  return {buffer.data(), end};
}

}  // namespace kalvo

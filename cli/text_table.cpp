#include "cli/text_table.h"

#include <algorithm>
#include <numeric>
#include <sstream>

#include "study/codepage.h"

namespace kalvo {

namespace {

constexpr std::size_t kGap = 2;

std::string Aligned(const std::string& text, std::size_t width, bool left) {
  const std::size_t length = CountCharacters(text);
  const std::string blanks(width > length ? width - length : 0, ' ');
  return left ? text + blanks : blanks + text;
}

}  // namespace

std::vector<std::size_t> TextTable::Widths() const {
  std::vector<std::size_t> widths;
  for (std::size_t c = 0; c < columns_.size(); ++c) {
    std::size_t width =
        std::max(CountCharacters(columns_[c].head), CountCharacters(columns_[c].unit));
    for (const Row& row : rows_) {
      width = std::max(width, CountCharacters(row.cells[c]));
    }
    widths.push_back(width);
  }
  return widths;
}

std::vector<std::size_t> TextTable::ShownColumns(const std::vector<std::size_t>& widths,
                                                 int width) const {
  std::vector<std::size_t> shown(columns_.size());
  std::iota(shown.begin(), shown.end(), std::size_t{0});
  const auto total = [&] {
    std::size_t sum = 0;
    for (const std::size_t c : shown) {
      sum += widths[c] + kGap;
    }
    return sum - std::min(sum, kGap);
  };
  for (std::size_t c = columns_.size(); c-- > 0;) {
    if (width > 0 && total() > static_cast<std::size_t>(width) && columns_[c].optional) {
      std::erase(shown, c);
    }
  }
  return shown;
}

void TextTable::Print(const Console& console) const {
  const std::vector<std::size_t> widths = Widths();
  const std::vector<std::size_t> shown = ShownColumns(widths, console.width);
  const auto line = [&](auto&& text_of) {
    std::string text;
    for (const std::size_t c : shown) {
      text += (text.empty() ? "" : std::string(kGap, ' ')) +
              Aligned(text_of(c), widths[c], columns_[c].left_aligned);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
  };
  console.out << console.Strong(line([&](std::size_t c) { return columns_[c].head; })) << '\n';
  const bool has_units = std::any_of(columns_.begin(), columns_.end(),
                                     [](const TextColumn& column) { return !column.unit.empty(); });
  if (has_units) {
    console.out << line([&](std::size_t c) { return columns_[c].unit; }) << '\n';
  }
  for (const Row& row : rows_) {
    const std::string text = line([&](std::size_t c) { return row.cells[c]; });
    console.out << (row.strong ? console.Strong(text) : text) << '\n';
  }
}

void PrintWrapped(const Console& console, const std::string& text, std::size_t indent) {
  const auto width = static_cast<std::size_t>(console.width);
  std::size_t column = indent;
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    const std::size_t length = CountCharacters(word);
    if (column > indent && width > 0 && column + 1 + length > width) {
      console.out << '\n' << std::string(indent, ' ');
      column = indent;
    } else if (column > indent) {
      console.out << ' ';
      ++column;
    }
    console.out << word;
    column += length;
  }
  console.out << '\n';
}

}  // namespace kalvo

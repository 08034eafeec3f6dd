#include "cli/text_table.h"

#include <algorithm>
#include <numeric>
#include <sstream>
#include <utility>

#include "study/codepage.h"

namespace kalvo {

namespace {

std::string Aligned(const std::string& text, std::size_t width, bool left) {
  const std::size_t length = CountCharacters(text);
  const std::string blanks(width > length ? width - length : 0, ' ');
  return left ? text + blanks : blanks + text;
}

// Stands in front of a column that begins a group.
constexpr std::string_view kRule = "│ ";

std::size_t WidthOf(std::size_t first, std::size_t last, std::size_t gap,
                    const std::vector<std::size_t>& widths) {
  std::size_t sum = 0;
  for (std::size_t c = first; c < last; ++c) {
    sum += widths[c] + (c == first ? 0 : gap);
  }
  return sum;
}

// All columns side by side, or as many as fit `width`, the first `keys` in front of each lot.
std::vector<std::vector<std::size_t>> BlocksOf(const std::vector<std::size_t>& widths,
                                               std::size_t keys, std::size_t gap,
                                               std::size_t width) {
  std::vector<std::size_t> key_columns(keys);
  std::iota(key_columns.begin(), key_columns.end(), std::size_t{0});
  const std::size_t key_width = WidthOf(0, keys, gap, widths);
  std::vector<std::vector<std::size_t>> blocks{key_columns};
  std::size_t used = key_width;
  for (std::size_t c = keys; c < widths.size(); ++c) {
    if (width > 0 && used + gap + widths[c] > width && blocks.back().size() > keys) {
      blocks.push_back(key_columns);
      used = key_width;
    }
    blocks.back().push_back(c);
    used += gap + widths[c];
  }
  return blocks;
}

}  // namespace

void TextTable::Add(std::vector<std::string> cells, bool marked) {
  for (std::string& cell : cells) {
    cell = Printable(cell);
  }
  rows_.push_back({std::move(cells), marked});
}

std::vector<std::size_t> TextTable::Widths() const {
  std::vector<std::size_t> widths;
  for (std::size_t c = 0; c < columns_.size(); ++c) {
    std::size_t width =
        std::max(CountCharacters(columns_[c].head), CountCharacters(columns_[c].unit));
    for (const Row& row : rows_) {
      width = std::max(width, CountCharacters(row.cells[c]));
    }
    widths.push_back(width + (columns_[c].begins_group ? CountCharacters(kRule) : 0));
  }
  return widths;
}

void TextTable::Print(const Console& console) const {
  const std::vector<std::size_t> widths = Widths();
  const auto width = static_cast<std::size_t>(console.width);
  constexpr std::size_t kWide = 2;
  const bool fits = width == 0 || WidthOf(0, widths.size(), kWide, widths) <= width;
  const std::size_t gap = fits ? kWide : 1;
  bool first = true;
  for (const Block& block : BlocksOf(widths, key_columns_, gap, width)) {
    if (!std::exchange(first, false)) {
      console.out << '\n';
    }
    PrintBlock(console, block, gap, widths);
  }
}

void TextTable::PrintBlock(const Console& console, const Block& block, std::size_t gap,
                           const std::vector<std::size_t>& widths) const {
  const auto line = [&](auto&& text_of) {
    std::string text;
    for (const std::size_t c : block) {
      const std::string_view rule = columns_[c].begins_group ? kRule : "";
      text += text.empty() ? "" : std::string(gap, ' ');
      text += rule;
      text += Aligned(text_of(c), widths[c] - CountCharacters(rule), columns_[c].left_aligned);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
  };
  console.out << console.Heading(line([&](std::size_t c) { return columns_[c].head; })) << '\n';
  const bool has_units = std::any_of(block.begin(), block.end(),
                                     [&](std::size_t c) { return !columns_[c].unit.empty(); });
  if (has_units) {
    console.out << line([&](std::size_t c) { return columns_[c].unit; }) << '\n';
  }
  for (const Row& row : rows_) {
    const std::string text = line([&](std::size_t c) { return row.cells[c]; });
    console.out << (row.marked ? console.Marked(text) : text) << '\n';
  }
}

void PrintWrapped(const Console& console, const std::string& text, std::size_t indent) {
  const std::string clean = Printable(text);
  const auto width = static_cast<std::size_t>(console.width);
  if (width == 0 || indent + CountCharacters(clean) <= width) {
    console.out << clean << '\n';
    return;
  }
  std::size_t column = indent;
  std::istringstream words(clean);
  for (std::string word; words >> word;) {
    const std::size_t length = CountCharacters(word);
    if (column > indent && column + 1 + length > width) {
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

std::string Printable(std::string_view utf8) {
  std::string clean;
  while (!utf8.empty()) {
    const char32_t character = TakeCharacter(utf8);
    const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
    AppendUtf8(clean, control ? U'?' : character);
  }
  return clean;
}

}  // namespace kalvo

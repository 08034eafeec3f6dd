#include "tests/support/markdown.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>

#include "study/letter_case.h"

namespace kalvo {
namespace {

// None when it is no line of a table.
std::vector<std::string> CellsOfLine(const std::string& line) {
  if (!line.starts_with('|')) return {};
  std::vector<std::string> cells = Split(line, '|');
  cells.erase(cells.begin());
  cells.pop_back();
  std::ranges::transform(cells, cells.begin(), [](const auto& cell) { return InOneLine(cell); });
  return cells;
}

bool IsRule(const std::vector<std::string>& cells) {
  return cells.front().find_first_not_of("-:") == std::string::npos && !cells.front().empty();
}

}  // namespace

std::vector<std::string> SplitAt(std::string_view text, std::string_view by) {
  std::vector<std::string> pieces;
  for (std::size_t at = text.find(by); at != std::string_view::npos; at = text.find(by)) {
    pieces.emplace_back(text.substr(0, at));
    text.remove_prefix(at + by.size());
  }
  pieces.emplace_back(text);
  return pieces;
}

std::string InOneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool blank = c == ' ' || c == '\n';
    if (!blank) line += c;
    if (blank && !line.empty() && line.back() != ' ') line += ' ';
  }
  if (line.ends_with(' ')) line.pop_back();
  return line;
}

std::string AnchorOf(std::string_view heading) {
  std::string anchor;
  for (const char c : LowerCase(heading)) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == ' ') {
      anchor += '-';
    } else if (byte >= 0x80 || std::isalnum(byte) != 0 || c == '-' || c == '_') {
      anchor += c;
    }
  }
  return anchor;
}

std::vector<std::vector<std::string>> Markdown::Lines() const {
  std::vector<std::vector<std::string>> lines;
  for (const std::string& line : Split(text, '\n')) {
    if (auto cells = CellsOfLine(line); !cells.empty()) lines.push_back(std::move(cells));
  }
  return lines;
}

std::vector<CsvLine> Markdown::Table(std::string_view first_column,
                                     std::string_view another) const {
  std::vector<CsvLine> lines;
  std::vector<std::string> columns;
  for (const std::string& line : Split(text, '\n')) {
    const std::vector<std::string> cells = CellsOfLine(line);
    if (cells.empty()) {
      columns.clear();
    } else if (cells.front() == first_column) {
      if (another.empty() || std::ranges::count(cells, another) != 0) columns = cells;
    } else if (!columns.empty() && !IsRule(cells)) {
      EXPECT_EQ(cells.size(), columns.size()) << line;
      CsvLine& made = lines.emplace_back();
      for (std::size_t i = 0; i < columns.size() && i < cells.size(); ++i) {
        made[columns[i]] = cells[i];
      }
    }
  }
  EXPECT_FALSE(lines.empty()) << first_column << ", " << another;
  return lines;
}

std::string Markdown::Value(std::string_view first_cell) const {
  for (const auto& cells : Lines()) {
    if (cells.size() > 1 && cells.front() == first_cell) return cells[1];
  }
  ADD_FAILURE() << "no line of " << first_cell;
  return {};
}

std::vector<std::string> Markdown::Between(std::string_view mark) const {
  const std::vector<std::string> pieces = SplitAt(text, mark);
  EXPECT_EQ(pieces.size() % 2, 1U) << mark << " without its partner";
  std::vector<std::string> inside;
  for (std::size_t i = 1; i < pieces.size(); i += 2) {
    inside.push_back(InOneLine(pieces[i]));
  }
  return inside;
}

std::vector<std::string> Markdown::Targets() const {
  std::vector<std::string> targets;
  const std::vector<std::string> pieces = SplitAt(text, "](");
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    targets.push_back(pieces[i].substr(0, pieces[i].find(')')));
  }
  return targets;
}

std::vector<std::string> Markdown::Anchors() const {
  std::vector<std::string> anchors;
  for (const std::string& line : Split(text, '\n')) {
    if (line.starts_with('#')) anchors.push_back(AnchorOf(line.substr(line.find(' ') + 1)));
  }
  return anchors;
}

std::map<std::string, Markdown> Markdown::Parts() const {
  std::map<std::string, Markdown> parts;
  const std::vector<std::string> pieces = SplitAt(text, "\n## ");
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    parts[pieces[i].substr(0, pieces[i].find('\n'))] = {pieces[i]};
  }
  return parts;
}

Markdown ReadMarkdown(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  EXPECT_TRUE(stream) << file;
  return {{std::istreambuf_iterator<char>(stream), {}}};
}

}  // namespace kalvo

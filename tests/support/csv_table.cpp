#include "tests/support/csv_table.h"

#include <gtest/gtest.h>

#include <charconv>
#include <fstream>

namespace kalvo {

std::vector<std::string> Split(const std::string& text, char by) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == by) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

CsvTable ReadCsv(const std::filesystem::path& file) {
  std::ifstream stream(file);
  EXPECT_TRUE(stream.is_open()) << file;
  CsvTable table;
  std::vector<std::string> columns;
  for (std::string text; std::getline(stream, text);) {
    if (text.starts_with("# ")) {
      table.comments.push_back(text.substr(2));
      continue;
    }
    const std::vector<std::string> cells = Split(text, ',');
    if (columns.empty()) {
      columns = cells;
      continue;
    }
    EXPECT_EQ(cells.size(), columns.size()) << file << ": " << text;
    CsvLine& line = table.lines.emplace_back();
    for (std::size_t i = 0; i < columns.size() && i < cells.size(); ++i) {
      line[columns[i]] = cells[i];
    }
  }
  EXPECT_FALSE(table.lines.empty()) << file;
  return table;
}

double CellNumber(const std::string& cell) {
  double value = 0;
  const auto read = std::from_chars(cell.data(), cell.data() + cell.size(), value);
  EXPECT_EQ(read.ec, std::errc()) << "\"" << cell << "\"";
  return value;
}

}  // namespace kalvo

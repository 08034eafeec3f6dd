#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kalvo {

/// A line of a table: its cells by the names of the columns.
using CsvLine = std::map<std::string, std::string>;

/// A table of cells parted by commas: comment lines ("# ..."), a line of column names, lines.
struct CsvTable {
  std::vector<std::string> comments;  ///< without "# "
  std::vector<CsvLine> lines;
};

std::vector<std::string> Split(const std::string& text, char by);

/// The table in `file`; the test fails when it cannot be read or a line has another count of cells.
CsvTable ReadCsv(const std::filesystem::path& file);

/// The number a cell begins with.
double CellNumber(const std::string& cell);

}  // namespace kalvo

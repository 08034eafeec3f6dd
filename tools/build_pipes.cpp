// build_pipes <folder of pipe tables> <library folder>
//     makes 0001.WPT, 0002.WPT, ... of 0001.csv, 0002.csv, ... and Liquids.dat with the two first
//     fluids. The tables' format is told in data/pipes/README.md; one that is not right ends the
//     program with its name and line.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <iostream>
#include <numbers>
#include <optional>
#include <set>
#include <stdexcept>

#include "study/fluid_library.h"
#include "study/memory_disk.h"
#include "study/pipe_list.h"
#include "study/real_disk.h"

namespace kalvo {

namespace {

using Path = std::filesystem::path;

constexpr auto kHeads = std::to_array<std::string_view>(
    {"# title: ", "# material: ", "# standard: ", "# source: ", "# roughness: "});
constexpr std::size_t kTitle = 0;
constexpr std::size_t kMaterial = 1;
constexpr std::string_view kColumnNames = "nominal,outer_mm,wall_mm,inner_mm,area_mm2,roughness_mm";
constexpr std::size_t kColumns = 6;

// A text of a table in the width of its field.
template <std::size_t N>
FixedText<N> FieldOf(std::string_view text) {
  const std::string bytes = ToCodePage(text);
  if (Trim(text).empty() || FromCodePage(bytes) != text) {
    throw std::runtime_error("not a text of code page 1253: \"" + std::string(text) + "\"");
  }
  if (bytes.size() > N) {
    throw std::runtime_error("longer than " + std::to_string(N) + ": \"" + std::string(text) +
                             "\"");
  }
  return FixedText<N>::FromBytes(bytes);
}

double PositiveNumber(std::string_view cell) {
  double value = 0;
  const char* end = cell.data() + cell.size();
  const auto read = std::from_chars(cell.data(), end, value, std::chars_format::fixed);
  if (read.ec != std::errc() || read.ptr != end || !(value > 0) || !std::isfinite(value)) {
    throw std::runtime_error("not a positive number: \"" + std::string(cell) + "\"");
  }
  return value;
}

std::array<std::string_view, kColumns> CellsOf(std::string_view line) {
  std::array<std::string_view, kColumns> cells;
  for (std::size_t i = 0; i < kColumns; ++i) {
    const std::size_t comma = line.find(',');
    if ((comma == std::string_view::npos) != (i + 1 == kColumns)) {
      throw std::runtime_error("not " + std::to_string(kColumns) + " cells");
    }
    cells[i] = line.substr(0, comma);
    line.remove_prefix(std::min(line.size(), cells[i].size() + 1));
  }
  return cells;
}

// One table, line by line.
class PipeTable {
 public:
  void Take(std::string_view line) {
    ++line_;
    if (line_ <= kHeads.size()) {
      TakeHead(line, line_ - 1);
    } else if (line_ == kHeads.size() + 1) {
      Check(line == kColumnNames, "not the names of the columns");
    } else {
      TakeSize(line);
    }
  }

  void End() const { Check(!rows_.empty(), "no sizes"); }

  [[nodiscard]] std::size_t line() const { return line_; }
  [[nodiscard]] const std::vector<PipeRow>& rows() const { return rows_; }

 private:
  static void Check(bool is_right, const std::string& what) {
    if (!is_right) {
      throw std::runtime_error(what);
    }
  }

  void TakeHead(std::string_view line, std::size_t head) {
    Check(line.starts_with(kHeads[head]) && line.size() > kHeads[head].size(),
          "not \"" + std::string(kHeads[head]) + "...\"");
    line.remove_prefix(kHeads[head].size());
    if (head == kTitle) {
      common_.title = FieldOf<78>(line);
    } else if (head == kMaterial) {
      common_.material = FieldOf<30>(line);
    }
  }

  void TakeSize(std::string_view line) {
    const auto cells = CellsOf(line);
    const double outer = PositiveNumber(cells[1]);
    const double wall = PositiveNumber(cells[2]);
    const double inner = PositiveNumber(cells[3]);
    const double area = PositiveNumber(cells[4]);
    Check(std::fabs(inner - (outer - 2 * wall)) < 1e-6, "inner is not outer - 2 x wall");
    Check(std::fabs(area - std::numbers::pi / 4 * inner * inner) < 0.0501,
          "area is not that of the inner diameter");
    PipeRow row = common_;
    row.pipe_id = static_cast<std::int16_t>(rows_.size() + 1);
    row.nominal_diameter = FieldOf<12>(cells[0]);
    row.inner_diameter = static_cast<float>(inner);
    row.area = static_cast<float>(area);
    row.roughness = static_cast<float>(PositiveNumber(cells[5]));
    CheckAgainstOthers(row);
    rows_.push_back(row);
  }

  void CheckAgainstOthers(const PipeRow& row) const {
    for (const PipeRow& other : rows_) {
      Check(other.nominal_diameter != row.nominal_diameter, "a second size of that name");
      Check(other.inner_diameter < row.inner_diameter && other.area < row.area,
            "not larger than the sizes before");
      Check(other.roughness == row.roughness, "another roughness than before");
    }
  }

  std::size_t line_ = 0;
  PipeRow common_;
  std::vector<PipeRow> rows_;
};

std::vector<PipeRow> ReadTable(const Path& file) {
  std::ifstream stream(file, std::ios::binary);
  PipeTable table;
  try {
    for (std::string line; std::getline(stream, line);) {
      table.Take(line);
    }
    table.End();
  } catch (const std::runtime_error& error) {
    throw std::runtime_error(file.string() + ":" + std::to_string(table.line()) + ": " +
                             error.what());
  }
  if (!stream.eof()) {
    throw std::runtime_error(file.string() + ": cannot be read");
  }
  return table.rows();
}

// The tables, which must be numbered from 0001 without a gap.
std::vector<Path> TablesIn(const Path& folder) {
  std::vector<Path> tables;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".csv") {
      tables.push_back(entry.path());
    }
  }
  std::sort(tables.begin(), tables.end());
  for (std::size_t i = 0; i < tables.size(); ++i) {
    const Path wanted = Path(PipeFileName(static_cast<int>(i) + 1)).replace_extension(".csv");
    if (tables[i].filename() != wanted) {
      throw std::runtime_error(tables[i].string() + ": " + wanted.string() + " is missing");
    }
  }
  if (tables.empty()) {
    throw std::runtime_error(folder.string() + ": no tables");
  }
  return tables;
}

void Require(const Outcome& outcome) {
  if (!outcome) {
    throw std::runtime_error(outcome.error().Line());
  }
}

void BuildLibrary(const Path& tables, const Path& library) {
  RealDisk disk;
  std::set<std::string> titles;
  int number = 0;
  for (const Path& table : TablesIn(tables)) {
    const std::vector<PipeRow> rows = ReadTable(table);
    if (!titles.insert(rows.front().title.Utf8()).second) {
      throw std::runtime_error(table.string() + ":1: a second system of that title");
    }
    Require(RowFile<PipeRow>(disk, library / PipeFileName(++number)).WriteAll(rows));
  }
  MemoryDisk memory;
  NoWait clock;
  Workspace workspace(memory, "/", disk, library, clock);
  Require(CreateFluidLibrary(workspace));
}

}  // namespace

}  // namespace kalvo

int main(int count, char** words) {
  if (count != 3) {
    std::cerr << "usage: build_pipes <folder of pipe tables> <library folder>\n";
    return 2;
  }
  try {
    kalvo::BuildLibrary(words[1], words[2]);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "build_pipes: " << error.what() << '\n';
    return 1;
  }
}

#pragma once

#include <gtest/gtest.h>

#include <cmath>

#include "study/memory_workspace.h"
#include "study/workbench.h"
#include "tests/support/csv_table.h"

namespace kalvo {

/// Answers every question with yes and fails on a box that tells of trouble.
class YesToAll : public Prompter {
 public:
  Answer ShowMessage(int code, const Study& study) override;
  Answer Ask(const Box& box) override;
};

/// A study on the machine's disk, loaded with its work files in memory.
struct CalculatedCase {
  CalculatedCase(const std::filesystem::path& file, const std::filesystem::path& library);

  [[nodiscard]] std::vector<SectionRow> Rows(std::string_view name = work_file::kRows) const {
    return workspace->Rows(name).ReadAll().value();
  }

  MemoryWorkspace workspace;
  PipeList pipes;
  Study study;
  YesToAll prompter;
  Workbench bench{study, *workspace, pipes, prompter};
};

void ExpectNear(double actual, double expected, double relative, const std::string& what);

/// Compares the fields that the line's columns name; every column must be a field.
template <typename Row>
void ExpectRow(const Row& row, const CsvLine& line, double relative, const std::string& where) {
  std::size_t compared = 0;
  ForEachField(row, [&](std::string_view name, const auto& value) {
    const auto cell = line.find(std::string(name));
    if (cell == line.end()) {
      return;
    }
    ++compared;
    const std::string what = where + " " + cell->first;
    using Value = std::decay_t<decltype(value)>;
    if constexpr (std::is_same_v<Value, float>) {
      ExpectNear(value, CellNumber(cell->second), relative, what);
    } else if constexpr (std::is_same_v<Value, std::int16_t>) {
      EXPECT_EQ(value, static_cast<int>(CellNumber(cell->second))) << what;
    } else {
      EXPECT_EQ(value.Utf8(), std::string(Trim(cell->second))) << what;
    }
  });
  EXPECT_EQ(compared, line.size()) << where << ": a column that no field bears";
}

template <typename Row>
void ExpectRows(const std::vector<Row>& rows, const std::vector<CsvLine>& lines, double relative,
                const std::string& where) {
  ASSERT_EQ(rows.size(), lines.size()) << where;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    ExpectRow(rows[i], lines[i], relative, where + " row " + std::to_string(i + 1));
  }
}

/// Compares the study and its rows with a table of results, whose comment reads
/// "PAR=... DP=... PumpHead=... critical=1 2 ...".
void ExpectResults(const CalculatedCase& calculated, const std::filesystem::path& file);

}  // namespace kalvo

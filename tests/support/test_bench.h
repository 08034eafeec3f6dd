#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/network.h"
#include "tests/support/program_in_memory.h"
#include "tests/support/scripted_prompter.h"

namespace kalvo {

/// A program without a window: an empty work folder, a library folder with two pipe systems
/// (1 steel, roughness 0.045 mm, ten sizes 3/8 to 4; 2 copper, 0.0015 mm, eight sizes 12x1 to 54x2)
/// and the two first fluids, and the state of a new study on pipe system 1. Folders live in memory.
class TestBench : public ProgramInMemory<ScriptedPrompter> {
 public:
  explicit TestBench(SystemKind kind = SystemKind::kClosed);

  /// Makes `rows` the open study: work files, tables and the study's values, as a load would.
  /// The kind follows the rows; nothing is unsaved.
  void PutRows(std::span<const SectionRow> rows);

  /// The same for a network of one line for each row, of this bench's kind.
  void PutNetwork(const std::vector<std::string_view>& lines);

  /// Rows of a work file; the test fails when it cannot be read.
  [[nodiscard]] std::vector<SectionRow> Rows(std::string_view name = work_file::kRows) const;

  /// Row `number` of the study; the test fails when there is none.
  [[nodiscard]] SectionRow Row(int number) const;

  /// Names of the rows, blanks as they stand, and their nominal diameters without any.
  [[nodiscard]] std::vector<std::string> Names() const;
  [[nodiscard]] std::vector<std::string> Diameters() const;

  /// One field's values, row by row.
  template <typename Value>
  [[nodiscard]] std::vector<Value> Column(Value SectionRow::*field) const {
    std::vector<Value> values;
    for (const SectionRow& row : Rows()) {
      values.push_back(row.*field);
    }
    return values;
  }

  /// Writes row `number` anew as `change` makes it; what the study knows of the rows stays.
  template <typename Change>
  void ChangeRow(int number, Change&& change) {
    SectionRow row = Row(number);
    change(row);
    EXPECT_TRUE(workspace.Rows().Write(number, row).ok());
  }

  /// Bytes of a work file, "(missing)" when it is not there.
  [[nodiscard]] std::string Bytes(std::string_view name = work_file::kRows) const;
};

/// Texts in one, parted by "|".
std::string Joined(const std::vector<std::string>& texts);

/// Writes a pipe system as file `file_name` into the bench's library folder.
void PutPipes(TestBench& bench, std::string_view file_name, std::span<const PipeRow> rows);

/// The two pipe systems that every bench starts with.
std::vector<PipeRow> SteelPipes();
std::vector<PipeRow> CopperPipes();

}  // namespace kalvo

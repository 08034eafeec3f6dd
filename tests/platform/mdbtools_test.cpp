// Another program reads our databases: mdbtools.

#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "platform/jet/print_shell.h"
#include "tests/platform/printed_rows.h"
#include "tests/support/other_program.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

std::string OutputOf(const std::string& command) {
  std::string output;
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return output;
  std::array<char, 4096> buffer{};
  for (std::size_t count = 0; (count = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    output.append(buffer.data(), count);
  }
  pclose(pipe);
  return output;
}

class Mdbtools : public testing::Test {
 protected:
  void SetUp() override {
    NeedProgram("mdb-export", "mdbtools");
    NeedProgram("mdb-schema", "mdbtools");
  }
  void TearDown() override { fs::remove(file_); }

  std::string Run(const std::string& program, const std::string& words, const std::string& bytes) {
    std::ofstream(file_, std::ios::binary) << bytes;
    return OutputOf(program + " '" + file_.string() + "' " + words);
  }

  const fs::path file_ =
      fs::temp_directory_path() / ("kalvoflume_mdbtools_" + std::to_string(::getpid()) + ".MDB");
};

std::string SchemaOf(const std::vector<PrintColumn>& columns) {
  std::string schema;
  for (const PrintColumn& column : columns) {
    const std::string type = column.type == PrintType::kInteger ? "Integer"
                             : column.type == PrintType::kSingle
                                 ? "Single"
                                 : "Text (" + std::to_string(column.width) + ")";
    schema +=
        (schema.empty() ? "" : ", \n") + ("\t[" + std::string(column.name) + "]\t\t\t") + type;
  }
  return schema + "\n";
}

TEST_F(Mdbtools, FindTheColumnsInBothShells) {
  for (const auto& columns : {SectionPrintColumns(), QuantityPrintColumns()}) {
    const std::string shell = MakePrintShell(columns);
    EXPECT_EQ(Run("mdb-ver", "", shell), "JET4\n");
    EXPECT_EQ(Run("mdb-tables -1", "", shell), "My_Table Data\n");
    const std::string schema = Run("mdb-schema", "", shell);
    EXPECT_NE(schema.find("CREATE TABLE [My_Table Data]\n (\n" + SchemaOf(columns) + ");"),
              std::string::npos)
        << schema;
    EXPECT_EQ(Run("mdb-count", "'My_Table Data'", shell), "0\n");
  }
}

// A value as mdb-export writes it with "~" around texts and "|" between values.
std::string CellOf(const PrintValue& value) {
  if (const auto* whole = std::get_if<std::int32_t>(&value)) return std::to_string(*whole);
  if (const auto* text = std::get_if<std::string>(&value)) return "~" + *text + "~";
  return {};
}

void ExpectLine(const std::string& told, const PrintLine& line, std::size_t number) {
  std::istringstream cells(told);
  for (std::size_t i = 0; i < line.size(); ++i) {
    std::string cell;
    std::getline(cells, cell, '|');
    if (const auto* single = std::get_if<float>(&line[i])) {
      EXPECT_EQ(std::strtof(cell.c_str(), nullptr), *single) << number << " " << i << " " << cell;
    } else {
      EXPECT_EQ(cell, CellOf(line[i])) << number << " " << i;
    }
  }
}

void ExpectLines(const std::string& told, const PrintTable& table) {
  std::istringstream lines(told);
  for (std::size_t i = 0; i < table.lines.size(); ++i) {
    std::string line;
    ASSERT_TRUE(std::getline(lines, line)) << i;
    ExpectLine(line, table.lines[i], i);
  }
  std::string more;
  EXPECT_FALSE(std::getline(lines, more)) << more;
}

TEST_F(Mdbtools, ReadEveryValueOfAnExport) {
  const PrintTable table = PrintedTable(999);
  const auto filled = FillPrintShell(MakePrintShell(table.columns), table);
  ASSERT_TRUE(filled) << filled.error().Line();
  EXPECT_EQ(Run("mdb-count", "'My_Table Data'", *filled), "999\n");
  ExpectLines(Run("mdb-export -H -d '|' -q '~'", "'My_Table Data'", *filled), table);
}

TEST_F(Mdbtools, ReadEveryValueOfTheQuantities) {
  std::vector<StatRow> lines(45);
  std::vector<PipeRow> pipes(45);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    lines[i].RecordNumber = static_cast<std::int16_t>(i + 1);
    lines[i].NomiDiameter = FixedText<12>::FromUtf8("DN " + std::to_string(i));
    lines[i].Length = 12.5F * static_cast<float>(i);
    pipes[i].material = FixedText<30>::FromUtf8("COPPER");
    pipes[i].title = FixedText<78>::FromUtf8("Χαλκοσωλήνες");
    pipes[i].inner_diameter = 10.3F + static_cast<float>(i);
  }
  const PrintTable table = PrintedQuantities(lines, pipes, "Ωμέγα & Υιοί");
  const auto filled = FillPrintShell(MakePrintShell(table.columns), table);
  ASSERT_TRUE(filled) << filled.error().Line();
  ExpectLines(Run("mdb-export -H -d '|' -q '~'", "'My_Table Data'", *filled), table);
}

}  // namespace
}  // namespace kalvo

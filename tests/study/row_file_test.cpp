#include "study/row_file.h"

#include <gtest/gtest.h>

#include "study/fluid_row.h"
#include "study/memory_disk.h"
#include "tests/support/failing_disk.h"
#include "tests/support/program_in_memory.h"

namespace kalvo {
namespace {

const std::filesystem::path kPath = "/program/ROWS.TMP";

std::vector<FluidRow> ThreeFluids() {
  std::vector<FluidRow> rows(3);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].row_number = static_cast<std::int16_t>(i + 1);
    rows[i].density = 1000;
  }
  return rows;
}

TEST(RowFile, FileCutAnywhereButBetweenRecordsIsRefusedByNameAndLeftAlone) {
  const std::string whole = EncodeRows<FluidRow>(ThreeFluids());
  MemoryDisk disk;
  RowFile<FluidRow> file(disk, kPath);
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const std::string cut = whole.substr(0, length);
    ASSERT_TRUE(disk.Write(kPath, cut).ok());
    const bool is_whole = length % 72 == 0;
    ASSERT_EQ(file.ReadAll().ok(), is_whole) << length;
    ASSERT_EQ(file.Count().ok(), is_whole) << length;
    if (is_whole) {
      EXPECT_EQ(*file.Count(), static_cast<int>(length / 72));
      EXPECT_EQ(file.ReadAll()->size(), length / 72);
      continue;
    }
    EXPECT_EQ(file.ReadAll().error().file, kPath);
    EXPECT_NE(file.Read(1).error().Line().find(kPath.string()), std::string::npos);
    EXPECT_FALSE(file.Write(1, FluidRow{}).ok());
    ASSERT_EQ(*disk.Read(kPath), cut) << length;
  }
}

TEST(RowFile, MissingFileHoldsNoRow) {
  MemoryDisk disk;
  RowFile<FluidRow> file(disk, kPath);
  EXPECT_EQ(*file.Count(), 0);
  EXPECT_TRUE(file.ReadAll()->empty());
  EXPECT_FALSE(file.Read(1).ok());
  EXPECT_FALSE(disk.Exists(kPath));
  EXPECT_TRUE(file.Write(1, FluidRow{}).ok());
  EXPECT_EQ(*file.Count(), 1);
}

TEST(RowFile, WritesOneRecordOrAddsOneBehindTheLast) {
  MemoryDisk disk;
  RowFile<FluidRow> file(disk, kPath);
  ASSERT_TRUE(file.WriteAll(ThreeFluids()).ok());
  FluidRow row;
  row.row_number = 77;
  ASSERT_TRUE(file.Write(2, row).ok());
  ASSERT_TRUE(file.Write(4, row).ok());
  std::vector<int> numbers;
  const auto rows = file.ReadAll();
  for (const FluidRow& written : *rows) {
    numbers.push_back(written.row_number);
  }
  EXPECT_EQ(numbers, (std::vector<int>{1, 77, 3, 77}));
  for (const int number : {-1, 0, 6}) {
    EXPECT_FALSE(file.Write(number, row).ok()) << number;
    EXPECT_FALSE(file.Read(number).ok()) << number;
  }
  EXPECT_EQ(*file.Count(), 4);
  EXPECT_EQ(NamesIn(disk, "/program"), std::vector<std::string>{"ROWS.TMP"});
}

TEST(RowFile, FullDiskLeavesTheOldFileWholeAndNothingBesideIt) {
  MemoryDisk memory;
  FailingDisk disk(memory);
  RowFile<FluidRow> file(disk, kPath);
  ASSERT_TRUE(file.WriteAll(ThreeFluids()).ok());
  const std::string before = *disk.Read(kPath);
  for (std::size_t room = 0; room < before.size(); ++room) {
    disk.FailAfterBytes(room);
    ASSERT_FALSE(file.WriteAll(std::vector<FluidRow>(3)).ok());
    ASSERT_EQ(*disk.Read(kPath), before);
    ASSERT_EQ(NamesIn(disk, "/program").size(), 1U);
  }
}

}  // namespace
}  // namespace kalvo

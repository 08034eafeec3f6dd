#include "study/section_rows.h"

#include <gtest/gtest.h>

#include "study/fault.h"
#include "tests/support/same_row.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

using Texts = std::vector<std::string>;

Outcome At(TestBench& bench, int number, Outcome (*operation)(Workbench&)) {
  bench.study.CurrentRow = static_cast<std::int16_t>(number);
  return operation(bench.bench);
}

void InsertBefore(TestBench& bench, int number) {
  ASSERT_TRUE(At(bench, number, InsertSectionRow).ok());
}

void ExpectNumberedInOrder(const TestBench& bench) {
  int number = 0;
  for (const SectionRow& row : bench.Rows()) {
    EXPECT_EQ(row.RecordNumber, ++number);
    EXPECT_EQ(row.SectionNo, number);
  }
  EXPECT_EQ(bench.study.SectionCount, number);
  EXPECT_EQ(bench.study.SectionTable.size(), static_cast<std::size_t>(number));
}

constexpr auto kDelete = &DeleteSectionRow;
constexpr auto kInsert = &InsertSectionRow;

struct Change {
  Outcome (*operation)(Workbench&);
  int place;
  SystemKind kind;
  const char* lines;
  const char* names;
};

TEST(RowOperations, NumberTheRowsAnewAndOpenNamesFollow) {
  for (const auto& [operation, place, kind, lines, names] :
       {Change{kDelete, 2, SystemKind::kClosed, "ANT/1,1/2,2/3,3/ANT", "ANT/1  |  2/3  |  3/ANT"},
        // own numbers are renewed, feeders stay as they are
        Change{kDelete, 2, SystemKind::kOpen, "1/ANT,2/1,3/2,4/3", "  1/ANT|  2/2  |  3/3  "},
        // every feeder but the source is shifted
        Change{kInsert, 1, SystemKind::kOpen, "1/ANT,2/1,3/2", "  1/ANT|  2/ANT|  3/2  |  4/3  "},
        // a later row fed from before the place keeps its name
        Change{kInsert, 3, SystemKind::kOpen, "9/ANT,2/1,3/2,4/1,5/ANT,6/3,7/99",
               "  1/ANT|  2/1  |  3/2  |  4/2  |  4/1  |  5/ANT|  7/4  |  8/100"}}) {
    TestBench bench(kind);
    bench.PutNetwork(Lines(lines));
    ASSERT_TRUE(At(bench, place, operation).ok());
    EXPECT_EQ(Joined(bench.Names()), names);
    EXPECT_EQ(bench.study.CurrentRow, place);
    EXPECT_TRUE(bench.study.unsaved_changes);
    EXPECT_FALSE(bench.workspace.Exists(work_file::kRebuilt));
    ExpectNumberedInOrder(bench);
  }
}

struct PlantMove {
  Outcome (*operation)(Workbench&);
  int place;
  const char* lines;
  std::int16_t plant;
  std::vector<std::int16_t> marks;
};

TEST(RowOperations, PlantSectionFollowsItsRow) {
  for (const auto& [operation, place, lines, plant, marks] :
       {PlantMove{kDelete, 3, "ANT/1,1/2 plant,2/ANT", 2, {0, 2}},
        PlantMove{kDelete, 1, "ANT/1,1/2 plant,2/ANT", 1, {1, 0}},
        PlantMove{kDelete, 1, "ANT/1 plant,1/2,2/ANT", 0, {0, 0}},
        PlantMove{kInsert, 1, "ANT/1 plant,1/ANT", 2, {0, 2, 0}},
        PlantMove{kInsert, 2, "ANT/1,1/2 plant,2/ANT", 3, {0, 0, 2, 0}}}) {
    TestBench bench;
    bench.PutNetwork(Lines(lines));
    ASSERT_TRUE(At(bench, place, operation).ok());
    EXPECT_EQ(bench.study.plant_section, plant);
    EXPECT_EQ(bench.Column(&SectionRow::Auxi), marks);
    EXPECT_EQ(bench.Column(&SectionRow::BurChil), std::vector<std::int16_t>(marks.size(), plant));
  }
}

TEST(RowOperations, OnTheOnlyRowOrNoneGiveTheirMessageAndNothingElse) {
  for (const auto& [operation, code] : {std::pair{kDelete, 121}, std::pair{kInsert, 122}}) {
    TestBench bench;
    ASSERT_TRUE(At(bench, 1, operation).ok());
    EXPECT_FALSE(bench.workspace.Exists(work_file::kRows));
    bench.PutNetwork({"ANT/ANT 5m"});
    const FolderImage before = ImageOf(bench.work_disk, TestBench::kProgramFolder);
    ASSERT_TRUE(At(bench, 1, operation).ok());
    EXPECT_EQ(bench.prompter.codes(), (std::vector<int>{code, code}));
    EXPECT_EQ(ImageOf(bench.work_disk, TestBench::kProgramFolder), before);
    EXPECT_FALSE(bench.study.unsaved_changes);
  }
}

TEST(DeleteSectionRow, RowInHandIsTheNextOrTheLast) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m", "1/2 4m", "2/3 3m", "3/ANT 2m"});
  ASSERT_TRUE(At(bench, 2, DeleteSectionRow).ok());
  EXPECT_EQ(bench.study.row.Length, 3.0F);
  ASSERT_TRUE(At(bench, 3, DeleteSectionRow).ok());
  EXPECT_EQ(bench.study.CurrentRow, 2);
}

TEST(InsertSectionRow, PutsACopyWithoutPlantAndEmitterBeforeTheRow) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m", "1/2 4m 3elbows 1up plant soma 300l/h 500mm", "2/ANT 3m"});
  const std::string before = bench.Bytes();
  SectionRow expected = bench.Row(2);
  InsertBefore(bench, 2);
  EXPECT_EQ(bench.Names(), (Texts{"ANT/1  ", "  1/2  ", "  1/2  ", "  2/ANT"}));
  expected.Auxi = 0;
  expected.BurChil = 3;
  expected.WaterFlow = expected.SomaDrop = expected.HeightDiff = 0;
  ExpectSameRow(bench.study.row, expected);
  EXPECT_EQ(bench.Row(3).SomaDrop, 500.0F);
  EXPECT_EQ(bench.Row(3).WaterFlow, 300.0F);
  EXPECT_EQ(bench.Bytes(work_file::kRowsBeforeInsert), before);
  EXPECT_EQ(bench.study.CurrentRow, 2);
  ExpectNumberedInOrder(bench);
}

TEST(InsertSectionRow, NumberTooLongForANameIsAFaultAndNothingChanges) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT 5m", "2/1 4m", "3/999 3m"});
  const std::string before = bench.Bytes();
  EXPECT_THROW(static_cast<void>(At(bench, 2, InsertSectionRow)), Fault);
  EXPECT_EQ(bench.Bytes(), before);
  EXPECT_FALSE(bench.workspace.Exists(work_file::kRowsBeforeInsert));
  EXPECT_FALSE(bench.study.unsaved_changes);
}

TEST(UndoInsert, TakesTheInsertionBackWhole) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m", "1/2 4m plant", "2/ANT 3m soma 300l/h 500mm"});
  const std::string before = bench.Bytes();
  InsertBefore(bench, 2);
  ASSERT_TRUE(UndoInsert(bench.bench).ok());
  EXPECT_EQ(bench.Bytes(), before);
  EXPECT_EQ(bench.study.plant_section, 2);
  EXPECT_EQ(bench.study.row.Length, 4.0F);
  EXPECT_EQ(bench.study.SectionCount, 3);
  EXPECT_FALSE(bench.workspace.Exists(work_file::kRowsBeforeInsert));
  EXPECT_FALSE(UndoInsert(bench.bench).ok());
  EXPECT_EQ(bench.Bytes(), before);
}

TEST(RowOperations, AnotherNetworkHasNoValidResultsAndItsEmittersWaitForACheck) {
  for (const auto change : {DeleteSectionRow, InsertSectionRow}) {
    TestBench bench;
    bench.PutNetwork({"ANT/1 5m", "1/2 5m soma 300l/h 500mm", "2/ANT 5m"});
    bench.study.results_valid = true;
    bench.study.CurrentRow = 2;
    ASSERT_TRUE(change(bench.bench).ok());
    EXPECT_FALSE(bench.study.results_valid);
    EXPECT_TRUE(bench.study.emitters_unchecked);
  }
}

TEST(RowOperations, RowThatIsNotThereAndOddFilesAreRefused) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m", "1/ANT 4m"});
  for (const auto operation : {DeleteSectionRow, InsertSectionRow}) {
    EXPECT_FALSE(At(bench, 3, operation).ok());
    EXPECT_FALSE(At(bench, 0, operation).ok());
  }
  const std::string odd = bench.Bytes() + "x";
  ASSERT_TRUE(bench.workspace.Write(work_file::kRows, odd).ok());
  EXPECT_FALSE(At(bench, 1, DeleteSectionRow).ok());
  EXPECT_FALSE(At(bench, 1, InsertSectionRow).ok());
  EXPECT_EQ(bench.Bytes(), odd);
}

}  // namespace
}  // namespace kalvo

#include "study/section_rows.h"

#include <gtest/gtest.h>

#include "study/fault.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

using Texts = std::vector<std::string>;

Outcome At(TestBench& bench, int number, Outcome (*operation)(Workbench&)) {
  bench.study.CurrentRow = static_cast<std::int16_t>(number);
  return operation(bench.bench);
}

void Delete(TestBench& bench, int number) { ASSERT_TRUE(At(bench, number, DeleteSectionRow).ok()); }

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

// Marks of the rows, in row order.
std::vector<int> PlantMarks(const TestBench& bench) {
  std::vector<int> marks;
  for (const SectionRow& row : bench.Rows()) {
    marks.push_back(row.Auxi);
    EXPECT_EQ(row.BurChil, bench.study.plant_section);
  }
  return marks;
}

TEST(DeleteSectionRow, OnlyRowAndMissingFileGiveMessage121AndNothingElse) {
  TestBench bench;
  Delete(bench, 1);
  EXPECT_FALSE(bench.workspace.Exists(work_file::kRows));
  bench.PutNetwork({"ANT/ANT 5m"});
  const std::string before = bench.Bytes();
  Delete(bench, 1);
  EXPECT_EQ(bench.prompter.codes(), (std::vector<int>{121, 121}));
  EXPECT_EQ(bench.Bytes(), before);
  EXPECT_FALSE(bench.study.unsaved_changes);
}

TEST(DeleteSectionRow, ClosedNamesStayAndTheRowInHandIsTheNextOrTheLast) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m", "1/2 4m", "2/3 3m", "3/ANT 2m"});
  Delete(bench, 2);
  EXPECT_EQ(bench.Names(), (Texts{"ANT/1  ", "  2/3  ", "  3/ANT"}));
  EXPECT_EQ(bench.study.CurrentRow, 2);
  EXPECT_EQ(bench.study.row.Length, 3.0F);
  Delete(bench, 3);
  EXPECT_EQ(bench.study.CurrentRow, 2);
  EXPECT_TRUE(bench.study.unsaved_changes);
  EXPECT_FALSE(bench.workspace.Exists(work_file::kRebuilt));
  ExpectNumberedInOrder(bench);
}

TEST(DeleteSectionRow, OpenRowsTakeTheirNewNumberButFeedersStayAsTheyAre) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT 5m", "2/1 4m", "3/2 3m", "4/3 2m"});
  Delete(bench, 2);
  EXPECT_EQ(bench.Names(), (Texts{"  1/ANT", "  2/2  ", "  3/3  "}));
  ExpectNumberedInOrder(bench);
}

TEST(DeleteSectionRow, PlantSectionFollowsItsRow) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m", "1/2 4m plant", "2/ANT 3m"});
  Delete(bench, 3);
  EXPECT_EQ(PlantMarks(bench), (std::vector<int>{0, 2}));
  bench.PutNetwork({"ANT/1 5m", "1/2 4m plant", "2/ANT 3m"});
  Delete(bench, 1);
  EXPECT_EQ(bench.study.plant_section, 1);
  EXPECT_EQ(PlantMarks(bench), (std::vector<int>{1, 0}));
}

TEST(DeleteSectionRow, DeletedPlantSectionIsGone) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m plant", "1/2 4m", "2/ANT 3m"});
  Delete(bench, 1);
  EXPECT_EQ(bench.study.plant_section, 0);
  EXPECT_EQ(PlantMarks(bench), (std::vector<int>{0, 0}));
}

TEST(InsertSectionRow, OnlyRowAndMissingFileGiveMessage122AndNothingElse) {
  TestBench bench;
  InsertBefore(bench, 1);
  bench.PutNetwork({"ANT/ANT 5m"});
  const std::string before = bench.Bytes();
  InsertBefore(bench, 1);
  EXPECT_EQ(bench.prompter.codes(), (std::vector<int>{122, 122}));
  EXPECT_EQ(bench.Bytes(), before);
  EXPECT_FALSE(bench.workspace.Exists(work_file::kRowsBeforeInsert));
}

TEST(InsertSectionRow, PutsACopyWithoutPlantAndEmitterBeforeTheRow) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m", "1/2 4m 3elbows 1up plant soma 300l/h 500mm", "2/ANT 3m"});
  const std::string before = bench.Bytes();
  const SectionRow original = bench.Row(2);
  InsertBefore(bench, 2);
  EXPECT_EQ(bench.Names(), (Texts{"ANT/1  ", "  1/2  ", "  1/2  ", "  2/ANT"}));
  SectionRow expected = original;
  expected.Auxi = 0;
  expected.BurChil = 3;
  expected.WaterFlow = expected.SomaDrop = expected.HeightDiff = 0;
  EXPECT_EQ(EncodeRows<SectionRow>({&bench.study.row, 1}), EncodeRows<SectionRow>({&expected, 1}));
  EXPECT_EQ(bench.Row(3).SomaDrop, 500.0F);
  EXPECT_EQ(bench.Row(3).WaterFlow, 300.0F);
  EXPECT_EQ(bench.study.plant_section, 3);
  EXPECT_EQ(PlantMarks(bench), (std::vector<int>{0, 0, 2, 0}));
  EXPECT_EQ(bench.Bytes(work_file::kRowsBeforeInsert), before);
  EXPECT_EQ(bench.study.CurrentRow, 2);
  ExpectNumberedInOrder(bench);
}

TEST(InsertSectionRow, BeforeRowOneOfAnOpenNetworkShiftsEveryFeederButTheSource) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT 5m", "2/1 4m", "3/2 3m"});
  InsertBefore(bench, 1);
  EXPECT_EQ(bench.Names(), (Texts{"  1/ANT", "  2/ANT", "  3/2  ", "  4/3  "}));
  ExpectNumberedInOrder(bench);
}

TEST(InsertSectionRow, LaterRowFedFromBeforeThePlaceKeepsItsName) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"9/ANT 5m", "2/1 4m", "3/2 3m", "4/1 2m", "5/ANT 1m", "6/3 1m", "7/99 1m"});
  InsertBefore(bench, 3);
  EXPECT_EQ(bench.Names(), (Texts{"  1/ANT", "  2/1  ", "  3/2  ", "  4/2  ", "  4/1  ", "  5/ANT",
                                  "  7/4  ", "  8/100"}));
  ExpectNumberedInOrder(bench);
}

TEST(InsertSectionRow, MovedPlantOfRowOneIsNoLongerTheFirst) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m plant", "1/ANT 4m"});
  InsertBefore(bench, 1);
  EXPECT_EQ(bench.study.plant_section, 2);
  EXPECT_EQ(PlantMarks(bench), (std::vector<int>{0, 2, 0}));
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

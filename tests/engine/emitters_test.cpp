#include "engine/emitters.h"

#include <gtest/gtest.h>

#include "study/tables.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

// Two emitters side by side; row 7 is a bypass that no circuit takes.
const std::vector<std::string_view> kTwoEmitters = {
    "ANT/1 9l/h", "1/2 soma 300l/h 500mm", "1/3 soma 200l/h 400mm", "2/4", "3/4", "4/ANT",
    "1/4 77l/h"};

// An old record of the emitter file: section, its name, flow and drop.
SectionRow Record(int number, std::string_view left, std::string_view right, float flow_lh,
                  float drop) {
  SectionRow row;
  row.RecordNumber = static_cast<std::int16_t>(number);
  row.Name = MakeName(left, right);
  row.WaterFlow = flow_lh;
  row.SomaDrop = drop;
  return row;
}

// kTwoEmitters with a third record in the emitter file.
void PutWithTail(TestBench& bench, const SectionRow& tail) {
  bench.PutNetwork(kTwoEmitters);
  auto records = bench.Rows(work_file::kEmitters);
  records.push_back(tail);
  ASSERT_TRUE(bench.workspace.Rows(work_file::kEmitters).WriteAll(records).ok());
}

const std::vector<float> kSums = {500, 300, 200, 300, 200, 500, 0};

TEST(EmitterRebuild, GivesEverySectionTheSumOfItsEmittersAndTheStudysValues) {
  TestBench bench;
  bench.PutNetwork(kTwoEmitters);
  bench.study.pipe_material = "COPPER";
  bench.study.MeanTemp = 45;
  bench.study.MeanVel = 0.8F;
  bench.study.emitters_unchecked = true;
  RebuildEmitterData(bench.bench);
  EXPECT_EQ(bench.Column(&SectionRow::WaterFlow), kSums);
  EXPECT_EQ(bench.study.TotalFlowM3h, 0.5F);
  EXPECT_FALSE(bench.study.unsaved_changes);
  EXPECT_EQ(bench.study.CalcStatus, 0);
  for (const SectionRow& row : bench.Rows()) {
    EXPECT_EQ(row.Material.Utf8(), "COPPER");
    EXPECT_EQ((std::vector{row.MeanTemp, row.MeanVel, row.PAR}), (std::vector{45.0F, 0.8F, 0.5F}));
    EXPECT_EQ((std::vector<int>{row.TOT, row.Outlets, row.KLEIS, row.ANOIK}),
              (std::vector<int>{7, 2, 1, 0}));
  }
  EXPECT_FALSE(bench.study.emitters_unchecked);
}

TEST(EmitterRebuild, AnOldTailOfTheFileCountsAsFarAsTheRowsBearIt) {
  struct Tail {
    SectionRow record;
    int count;
    float total_m3h;
    float drop_of_row_5;
  };
  const Tail tails[] = {{Record(5, "3", "4", 50, 90), 3, 0.55F, 90},
                        // of another name: nothing to the total, but the table knows its number
                        {Record(5, "8", "9", 50, 90), 3, 0.5F, 90},
                        // past the rows: skipped
                        {Record(8, "3", "4", 50, 90), 2, 0.5F, 0}};
  for (const Tail& tail : tails) {
    TestBench bench;
    PutWithTail(bench, tail.record);
    RebuildEmitterData(bench.bench);
    EXPECT_EQ(bench.study.EmitterCount, tail.count);
    EXPECT_EQ(bench.Row(1).Outlets, tail.count);
    EXPECT_EQ(bench.study.TotalFlowM3h, tail.total_m3h);
    EXPECT_EQ(bench.Row(5).SomaDrop, tail.drop_of_row_5);
    EXPECT_TRUE(bench.study.unsaved_changes);
    EXPECT_FALSE(bench.workspace.Exists(work_file::kEmittersInWork));
  }
}

TEST(EmitterRebuild, TakesTheEmittersThatTheRowsHave) {
  TestBench bench;
  bench.PutNetwork(kTwoEmitters);
  bench.study.EmitterTable.clear();
  bench.study.EmitterCount = 5;
  bench.workspace.Delete(work_file::kEmitters);
  RebuildEmitterData(bench.bench);
  EXPECT_EQ(bench.study.EmitterCount, 2);
  EXPECT_TRUE(bench.study.unsaved_changes);
  EXPECT_EQ(bench.Rows(work_file::kEmitters).at(1).RecordNumber, 3);
}

TEST(EmitterRebuild, FlowsPassThroughSevenDigits) {
  TestBench bench;
  bench.PutNetwork({"ANT/ANT soma 1234567.875l/h 5mm"});
  RebuildEmitterData(bench.bench);
  EXPECT_TRUE(bench.study.SingleSection);
  EXPECT_EQ(bench.Row(1).WaterFlow, 1234568.0F);
  EXPECT_FALSE(bench.workspace.Exists(work_file::kFlowReport));
}

TEST(EmitterRebuild, OfABrokenNetworkTellsAndFindsTheNames) {
  TestBench bench;
  bench.PutNetwork({"ANT/1", "1/2 soma 300l/h 500mm", "2/ANT", "5/2"});
  ASSERT_TRUE(bench.workspace.Write(work_file::kErrors, "old\n").ok());
  bench.study.SectionTable.clear();
  RebuildEmitterData(bench.bench);
  EXPECT_EQ(bench.Bytes(work_file::kErrors), "Το Τμήμα 4 έχει ανύπαρκτο Αρχικό Κόμβο !!\n");
  EXPECT_TRUE(bench.study.NameErrors);
  EXPECT_EQ(bench.Row(2).SomaDrop, 500.0F);
}

TEST(EmitterRebuild, ShowsThatABranchIsMissingAndKeepsTheEmitters) {
  TestBench bench;
  bench.PutNetwork({"ANT/1", "1/2 soma 300l/h 500mm", "2/3"});
  RebuildEmitterData(bench.bench);
  EXPECT_EQ(bench.prompter.codes(), std::vector<int>{2004});
  EXPECT_EQ(bench.Column(&SectionRow::WaterFlow), (std::vector<float>{0, 0, 0}));
  EXPECT_EQ(bench.Row(2).SomaDrop, 500.0F);
}

}  // namespace
}  // namespace kalvo

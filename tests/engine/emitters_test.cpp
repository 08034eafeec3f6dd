#include "engine/emitters.h"

#include <gtest/gtest.h>

#include "study/tables.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

// Two emitters side by side; row 7 is a bypass that no circuit takes.
const std::vector<std::string_view> kNetwork = {
    "ANT/1 9l/h", "1/2 soma 300l/h 500mm", "1/3 soma 200l/h 400mm", "2/4", "3/4", "4/ANT",
    "1/4 77l/h"};

std::vector<float> Flows(const TestBench& bench) {
  std::vector<float> flows;
  for (const SectionRow& row : bench.Rows()) {
    flows.push_back(row.WaterFlow);
  }
  return flows;
}

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

// kNetwork with a third record in the emitter file.
void PutWithTail(TestBench& bench, const SectionRow& tail) {
  bench.PutNetwork(kNetwork);
  auto records = bench.Rows(work_file::kEmitters);
  records.push_back(tail);
  ASSERT_TRUE(bench.workspace.Rows(work_file::kEmitters).WriteAll(records).ok());
}

TEST(EmitterRebuild, GivesEverySectionTheSumOfItsEmitters) {
  TestBench bench;
  bench.PutNetwork(kNetwork);
  RebuildEmitterData(bench.bench);
  EXPECT_EQ(Flows(bench), (std::vector<float>{500, 300, 200, 300, 200, 500, 0}));
  EXPECT_EQ(bench.study.TotalFlowM3h, 0.5F);
  EXPECT_FALSE(bench.study.unsaved_changes);
  EXPECT_EQ(bench.study.CalcStatus, 0);
}

TEST(EmitterRebuild, WritesTheStudysValuesOnEveryRow) {
  TestBench bench;
  bench.PutNetwork(kNetwork);
  bench.study.pipe_material = "COPPER";
  bench.study.MeanTemp = 45;
  bench.study.MeanVel = 0.8F;
  bench.study.emitters_unchecked = true;
  RebuildEmitterData(bench.bench);
  for (const SectionRow& row : bench.Rows()) {
    EXPECT_EQ(row.Material.Utf8(), "COPPER");
    EXPECT_EQ(row.MeanTemp, 45.0F);
    EXPECT_EQ(row.MeanVel, 0.8F);
    EXPECT_EQ(row.TOT, 7);
    EXPECT_EQ(row.PAR, 0.5F);
    EXPECT_EQ(row.Outlets, 2);
    EXPECT_EQ(row.KLEIS, 1);
    EXPECT_EQ(row.ANOIK, 0);
  }
  EXPECT_FALSE(bench.study.emitters_unchecked);
}

TEST(EmitterRebuild, AnOldTailOfTheFileStaysAndCounts) {
  TestBench bench;
  PutWithTail(bench, Record(5, "3", "4", 50, 90));
  RebuildEmitterData(bench.bench);
  EXPECT_EQ(bench.Rows(work_file::kEmitters).size(), 3U);
  EXPECT_EQ(bench.study.EmitterCount, 3);
  EXPECT_EQ(bench.Row(1).Outlets, 3);
  EXPECT_EQ(bench.Row(5).SomaDrop, 90.0F);
  EXPECT_TRUE(bench.study.unsaved_changes);
  EXPECT_EQ(bench.study.TotalFlowM3h, 0.55F);
  EXPECT_EQ(bench.workspace.Exists(work_file::kEmittersInWork), false);
}

TEST(EmitterRebuild, ARecordOfAnotherNameAddsNothingToTheTotal) {
  TestBench bench;
  PutWithTail(bench, Record(5, "8", "9", 50, 90));
  RebuildEmitterData(bench.bench);
  EXPECT_EQ(bench.study.TotalFlowM3h, 0.5F);
  EXPECT_EQ(bench.Row(5).SomaDrop, 90.0F);  // the table still knows its number
}

TEST(EmitterRebuild, ALeftoverRecordPastTheRowsIsSkipped) {
  TestBench bench;
  PutWithTail(bench, Record(8, "3", "4", 50, 90));
  RebuildEmitterData(bench.bench);
  EXPECT_EQ(bench.study.EmitterCount, 2);
  EXPECT_EQ(Flows(bench), (std::vector<float>{500, 300, 200, 300, 200, 500, 0}));
}

TEST(EmitterRebuild, TakesTheEmittersThatTheRowsHave) {
  TestBench bench;
  bench.PutNetwork(kNetwork);
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
  bench.study.CalcStatus = -1;  // left by an earlier check
  ASSERT_TRUE(bench.workspace.Write(work_file::kErrors, "old\n").ok());
  bench.study.SectionTable.clear();
  RebuildEmitterData(bench.bench);
  EXPECT_EQ(bench.Bytes(work_file::kErrors), "Το Τμήμα 4 έχει ανύπαρκτο Αρχικό Κόμβο !!\n");
  EXPECT_EQ(bench.study.CalcStatus, -1);
  EXPECT_TRUE(bench.study.NameErrors);
  EXPECT_EQ(bench.Row(2).SomaDrop, 500.0F);
}

TEST(EmitterRebuild, ShowsThatABranchIsMissingAndKeepsTheEmitters) {
  TestBench bench;
  bench.PutNetwork({"ANT/1", "1/2 soma 300l/h 500mm", "2/3"});
  RebuildEmitterData(bench.bench);
  EXPECT_EQ(bench.prompter.codes(), std::vector<int>{2004});
  EXPECT_EQ(Flows(bench), (std::vector<float>{0, 0, 0}));
  EXPECT_EQ(bench.Row(2).SomaDrop, 500.0F);
}

}  // namespace
}  // namespace kalvo

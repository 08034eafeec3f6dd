#include "engine/outlets.h"

#include <gtest/gtest.h>

#include "engine/branches.h"
#include "engine/outlet_flows.h"
#include "tests/engine/stored_drops.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

using Numbers = std::vector<int>;

Floats WaterFlows(const TestBench& bench) { return bench.Column(&SectionRow::WaterFlow); }

TEST(Outlets, AreTheSectionsThatFeedNoOther) {
  EXPECT_EQ(FindOutlets(Network({"1/ANT"})), Numbers{1});
  EXPECT_EQ(FindOutlets(Network({"1/ANT", "2/1", "3/2"})), Numbers{3});
  EXPECT_EQ(FindOutlets(Network({"1/ANT", "2/1", "3/ANT", "4/2", "5/2", "6/77"})),
            (Numbers{3, 4, 5, 6}));
}

TEST(Outlets, FlowsAreSummedLevelByLevelUpToRowOne) {
  TestBench bench(SystemKind::kOpen);
  // Row 1 is reached on the first level (by 2), the second (by 4, 5) and the third (by 7, 8).
  bench.PutNetwork({"1/ANT 99 l/h", "2/1 outlet 100.5 l/h 5mwg", "3/1 77 l/h",
                    "4/3 outlet 20 l/h 5mwg", "5/3 outlet 3 l/h 5mwg", "6/ANT", "7/6", "8/6",
                    "9/7 outlet 0.25 l/h 5mwg", "10/7 outlet 0.5 l/h 5mwg",
                    "11/8 outlet 1000 l/h 5mwg", "12/8 outlet 2000 l/h 5mwg"});
  SumOutletFlows(bench.bench);
  EXPECT_EQ(WaterFlows(bench),
            (Floats{3124.25F, 100.5F, 23, 20, 3, 3000.75F, 0.75F, 3000, 0.25F, 0.5F, 1000, 2000}));
  EXPECT_EQ(bench.study.EmitterCount, 7);
  EXPECT_EQ(bench.study.SectionTable[5].flow_lh, 3000.75);
  SumOutletFlows(bench.bench);  // sums begin anew
  EXPECT_EQ(bench.Row(1).WaterFlow, 3124.25F);
}

TEST(Outlets, OnlyWhatTheFileHoldsOfRowsThatAreThereCounts) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT", "2/1 outlet 100 l/h 5mwg", "3/1 outlet 50 l/h 5mwg"});
  auto records = bench.Rows(work_file::kEmitters);
  records[0].WaterFlow = 80;
  records[1].RecordNumber = 9;
  ASSERT_TRUE(bench.workspace.Rows(work_file::kEmitters).WriteAll(records).ok());
  SumOutletFlows(bench.bench);
  EXPECT_EQ(WaterFlows(bench), (Floats{80, 80, 0}));
  EXPECT_EQ(bench.Row(3).SomaDrop, 0.0F);
  EXPECT_EQ(bench.study.EmitterCount, 1);
}

TEST(Outlets, ALonelyOutletOfRowOneFlowsThroughIt) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT outlet 100 l/h 5mwg"});
  SumOutletFlows(bench.bench);
  EXPECT_EQ(WaterFlows(bench), Floats{100});
}

TEST(Outlets, AreListedWithTheValuesTheyHave) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT 500 l/h", "2/1 300 l/h", "3/1 3up outlet 200 l/h 5mwg"});
  bench.workspace.Delete(work_file::kEmitters);
  const auto outlets = ListOutlets(bench.bench);
  ASSERT_EQ(outlets.size(), 2U);
  EXPECT_EQ(outlets[0].WaterFlow, 0.0F);  // what it passed on before it became an outlet
  EXPECT_EQ(outlets[1].WaterFlow, 200.0F);
  EXPECT_EQ(outlets[1].HeightDiff, 3.0F);
  EXPECT_EQ(bench.Rows(work_file::kEmitters).at(1).Name, outlets[1].Name);
  EXPECT_FALSE(bench.study.unsaved_changes);
}

TEST(Outlets, WhatTheFileAloneKnowsOfANameIsListed) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT", "2/1 outlet 80 l/h 5mwg", "3/1 3up outlet 200 l/h 5mwg"});
  auto rows = bench.Rows();
  rows[1].SomaDrop = rows[2].SomaDrop = 0;
  rows[1].Name = MakeName("7", "1");
  ASSERT_TRUE(bench.workspace.Rows().WriteAll(rows).ok());
  const auto outlets = ListOutlets(bench.bench);
  ASSERT_EQ(outlets.size(), 2U);
  EXPECT_FALSE(outlets[0].HasEmitter());
  EXPECT_EQ(outlets[1].SomaDrop, 5.0F);
  EXPECT_EQ(outlets[1].WaterFlow, 200.0F);
  rows[2].HeightDiff = 0;
  ASSERT_TRUE(bench.workspace.Rows().WriteAll(rows).ok());
  EndOutlets(bench.bench, outlets);
  EXPECT_EQ(bench.Row(3).HeightDiff, 3.0F);
  EXPECT_TRUE(bench.study.unsaved_changes) << "the rows did not know them";
  EXPECT_TRUE(bench.study.emitters_unchecked) << "one has no values";
}

TEST(Outlets, RowOneHangsOnNothingWhateverItsNameSays) {
  for (const std::string_view name : {"1/1", "1/ΑΝΤ", "1/3", "1/0"}) {
    TestBench bench(SystemKind::kOpen);
    const std::string first = std::string(name) + " 5m";
    bench.PutNetwork({first, "2/1 outlet 100 l/h 5mwg", "3/1", "4/3 outlet 20 l/h 5mwg",
                      "5/3 outlet 3 l/h 5mwg"});
    EXPECT_TRUE(SumOutletFlows(bench.bench));
    EXPECT_EQ(WaterFlows(bench), (Floats{123, 100, 23, 20, 3})) << name;
    EXPECT_EQ(FindOutlets(bench.Rows()), (Numbers{2, 4, 5})) << name;
    EXPECT_EQ(BuildOpenBranchStrings(bench.study).at(1), (Branch{1, 3, 4})) << name;
  }
  EXPECT_EQ(FindOutlets(Network({"1/1"})), Numbers{1});
}

TEST(Outlets, TheFirstListOfASingleOutletIsAChange) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT"});
  ListOutlets(bench.bench);
  EXPECT_TRUE(bench.study.unsaved_changes);
  bench.study.unsaved_changes = false;
  ListOutlets(bench.bench);
  EXPECT_FALSE(bench.study.unsaved_changes);
}

TEST(Outlets, TheEndOfTheirEntryPutsThemIntoTheRows) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT 9 l/h outlet 9mwg", "2/1", "3/1"});
  bench.study.emitters_unchecked = bench.study.NameErrors = bench.study.results_valid = true;
  const auto opened = ListOutlets(bench.bench);
  StoreOutlet(bench.bench, 1, {300.5F, 5, 0});
  StoreOutlet(bench.bench, 2, {200, 10, 7.5F});
  EXPECT_EQ(bench.Row(3).HeightDiff, 7.5F);
  EndOutlets(bench.bench, opened);
  EXPECT_EQ(WaterFlows(bench), (Floats{0, 300.5F, 200}));
  EXPECT_EQ(bench.Row(1).SomaDrop, 0.0F);
  EXPECT_EQ(bench.Row(1).Outlets, 2);
  EXPECT_EQ(bench.Row(1).ANOIK, 1);
  EXPECT_EQ(bench.study.TotalFlowM3h, 0.5005F);
  EXPECT_EQ(bench.study.EmitterTable.at(1).flow_lh, 200.0);
  EXPECT_TRUE(bench.study.unsaved_changes);
  EXPECT_FALSE(bench.study.results_valid);  // the feeders have no flow now
  EXPECT_FALSE(bench.study.emitters_unchecked || bench.study.NameErrors);
}

TEST(Outlets, AnEntryThatEndsAsItBeganWritesNothing) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT", "2/1 outlet 300 l/h 5mwg", "3/1 outlet 200 l/h 5mwg"});
  EndOutlets(bench.bench, {});
  SumOutletFlows(bench.bench);
  bench.study.results_valid = true;
  bench.study.unsaved_changes = false;
  const std::string rows = bench.Bytes();
  const std::string records = bench.Bytes(work_file::kEmitters);
  const auto opened = ListOutlets(bench.bench);
  EXPECT_EQ(bench.Bytes(work_file::kEmitters), records);
  StoreOutlet(bench.bench, 1, {450, 5, 0});
  StoreOutlet(bench.bench, 1, {300, 5, 0});
  EndOutlets(bench.bench, opened);
  EXPECT_EQ(bench.Bytes(), rows) << "the sum of row 1 too";
  EXPECT_TRUE(bench.study.results_valid);
  EXPECT_FALSE(bench.study.unsaved_changes);
  LeaveOutletsUnchecked(bench.bench, opened);
  EXPECT_TRUE(bench.study.results_valid && bench.study.emitters_unchecked);
  StoreOutlet(bench.bench, 1, {450, 5, 0});
  LeaveOutletsUnchecked(bench.bench, opened);
  EXPECT_FALSE(bench.study.results_valid);
}

}  // namespace
}  // namespace kalvo

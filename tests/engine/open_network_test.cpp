#include "engine/open_network.h"

#include <gtest/gtest.h>

#include "engine/balancing.h"
#include "engine/first_row_index.h"
#include "tests/engine/stored_drops.h"
#include "tests/support/faults.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

// The same for an open network.
void PutOpenDrops(TestBench& bench, const std::vector<std::string_view>& lines,
                  const Floats& drops) {
  PutDrops(bench, lines, drops, SystemKind::kOpen);
}

TEST(OpenNetwork, PumpsToTheCriticalOutletsHeightPressureAndResidue) {
  TestBench bench;
  PutOpenDrops(bench, {"1/ANT", "2/1 4up outlet 300 l/h 5mwg", "3/1 9up outlet 200 l/h 2mwg"},
               {100.125F, 250.5F, 80});
  OpenPassFlowOnly(bench.bench);
  // Section 2 decides by losses and flow pressure, 100.125 + 250.5 + 5,000 = 5,350.625 against
  // 2,180.125, and its height alone counts: + 4,000 + 500 = 9,850.625. Behind 1: 9,850.625 -
  // 100.125 = 9,750.5; behind 2: - 250.5 - 4,000 = 5,500, its 5 m and the residue; behind 3:
  // 9,750.5 - 80 - 9,000 = 670.5, less than the 2 m it needs.
  EXPECT_EQ(Pressures(bench), (Floats{9750.5F, 5500, 670.5F}));
  EXPECT_EQ(bench.study.CriticalDrop, 9850.625F);
  EXPECT_EQ(bench.study.PumpHead, 9.8506F);
  EXPECT_EQ(bench.study.TotalFlowM3h, 0.5F);
  EXPECT_EQ(bench.study.critical_branch, "1  -2  -");
  EXPECT_EQ(bench.Row(3).DP, 9850.625F);

  OpenPassPressure(bench.bench);
  EXPECT_EQ(bench.study.PumpHead, 9.850625F);  // not rounded by this method
}

TEST(OpenNetwork, OutletsBelowThePumpAddNoHeight) {
  TestBench bench;
  PutOpenDrops(bench, {"1/ANT", "2/1 -3up outlet 300 l/h 1mwg", "3/1 -2up outlet 200 l/h 1mwg"},
               {10, 20, 20});
  OpenPassFlowOnly(bench.bench);
  EXPECT_EQ(Pressures(bench), (Floats{1520, 4500, 3500}));  // the first of equal branches
  EXPECT_EQ(bench.study.critical_branch, "1  -2  -");
}

TEST(OpenNetwork, AFeederLaterInTheFileIsReadAsNothing) {
  TestBench bench;
  PutOpenDrops(bench,
               {"1/ANT", "2/4 outlet 300 l/h 1mwg", "3/4 outlet 100 l/h 1mwg", "4/1 1up",
                "5/ANT outlet 50 l/h 1mwg", "6/77 outlet 50 l/h 1mwg"},
               {10, 20, 30, 40, 50, 60});
  OpenPassFlowOnly(bench.bench);
  // 10 + 40 + 30 + 1,000 on the way to 3, + 1,000 for the height of 4 and 500: 2,580 less 10 are
  // behind 1. Section 4 is still 0 when 2 and 3 are reached; 5 takes row 1 for its feeder, and so
  // does 6, whose feeder no row bears.
  EXPECT_EQ(Pressures(bench), (Floats{2570, 980, 970, 1530, 2520, 2510}));
  EXPECT_EQ(bench.study.critical_branch, "1  -4  -3  -");
}

TEST(OpenNetwork, ABranchBeginsWithRowOneOnce) {
  TestBench bench;
  PutOpenDrops(bench,
               {"1/ANT outlet 10 l/h 1mwg", "2/ANT outlet 10 l/h 1mwg", "3/2 outlet 5 l/h 1mwg",
                "4/5 outlet 1 l/h 1mwg", "5/4 outlet 1 l/h 1mwg"},
               {1, 1, 1, 1, 1});
  const auto branches = BuildOpenBranchStrings(bench.study);
  EXPECT_EQ(branches[0], (Branch{1}));
  EXPECT_EQ(branches[1], (Branch{1, 2}));
  EXPECT_EQ(branches[2], (Branch{1, 2, 3}));
  EXPECT_EQ(branches[3].size(), 6U);  // a circle: lost after as many steps as there are rows
}

// Sections 2 and 3 behind section 1 on 2 1/2" and 1 1/4", and what decides on their steps.
class OpenStepping : public testing::Test {
 protected:
  OpenStepping() {
    NetworkHeader header;
    header.kind = SystemKind::kOpen;
    auto rows = Network({"1/ANT 10m 3000 l/h", "2/1 10m 3000 l/h 2up plant",
                         "3/2 10m outlet 1500 l/h 1mwg", "4/2 10m outlet 1500 l/h 1mwg"},
                        header);
    bench.PutRows(rows);
    SizePipes(bench.bench, Method::kFlowAndPressure);
    store.emplace(bench.Rows());
    for (SectionRow& row : store->rows()) {
      row.AvaiPres = 50000;
    }
  }

  // Row in hand after a stepping down of `chain` with `available` mm w.g.
  int Step(Branch chain, int fork, float available) {
    const auto pass = TakePassConditions(bench.bench);
    const CriticalBranch critical = ReadCriticalBranch(bench.study, *store);
    const auto context = MakeBalanceContext(bench.study, *store, *pass, critical);
    return StepDownOpenBranch(context, std::move(chain), fork, available);
  }

  std::string Diameter(int number) { return store->At(number).NomiDiam.Utf8(); }

  TestBench bench;
  std::optional<RowTable> store;
};

TEST_F(OpenStepping, TakesEverySectionDownAndMarksNone) {
  EXPECT_EQ(Diameter(2) + " " + Diameter(3), "1 1/4 1");
  // 2,000 for the height of section 2 are spent on the way, so 10,000 carry both.
  EXPECT_EQ(Step({2, 3}, 1, 10000), 2);
  EXPECT_EQ(Diameter(2) + " " + Diameter(3), "1 3/4");
  EXPECT_EQ(store->At(2).Auxi, 2);  // the plant's marker stays, and counts
}

TEST_F(OpenStepping, TheOutletKeepsThePressureItNeeds) {
  store->At(3).AvaiPres = 1000;
  Step({3}, 2, 10000);
  EXPECT_EQ(Diameter(3), "1");
}

TEST_F(OpenStepping, TheForksOwnOutletIsTakenOff) {
  store->At(2).SomaDrop = 9.999F;
  EXPECT_EQ(Step({3}, 2, 10000), 3);
  EXPECT_EQ(Diameter(3), "1");
}

TEST_F(OpenStepping, NothingAvailableIsAFault) {
  EXPECT_EQ(FaultOf([&] { Step({}, 1, 0); }), 6);
  EXPECT_EQ(Step({}, 0, 10), 0);
}

TEST(OpenBalancing, SettlesTheForkOfEveryBranchButTheLastAnew) {
  TestBench bench;
  PutOpenDrops(bench,
               {"1/ANT", "2/3 outlet 300 l/h 1mwg", "3/1 3up", "4/3 outlet 100 l/h 9mwg",
                "5/1 outlet 100 l/h 1mwg"},
               {10, 20, 30, 40, 50});
  OpenPassPressure(bench.bench);
  // The pass leaves what the file's order makes of it; no pipe changes.
  const float pump = 10 + 30 + 40 + 9000 + 3000 + 500;
  EXPECT_EQ(Pressures(bench),
            (Floats{pump - 10, -20 + 3000, pump - 40 - 3000, pump - 80, pump - 60}));
}

}  // namespace
}  // namespace kalvo

#include "engine/critical.h"

#include <gtest/gtest.h>

#include "tests/engine/stored_drops.h"
#include "tests/support/faults.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

TEST(CriticalBranch, OfALoopIsTheLoop) {
  TestBench bench;
  PutDrops(bench, {"ANT/1", "1/2 soma 300l/h 800mm", "2/ANT"}, {100.25F, 850.5F, 60.13F});
  CriticalPassFlowOnly(bench.bench);
  // 100.25 + 850.50 + 60.13 = 1010.88 is the pump's; 1010.88 - 100.25 = 910.63 are left behind
  // section 1, 910.63 - 850.50 = 60.13 behind section 2 and nothing behind section 3.
  EXPECT_EQ(Pressures(bench), (Floats{910.63F, 60.13F, 0}));
  EXPECT_EQ(bench.study.critical_branch, "1  -2  -3  -");
  EXPECT_EQ(bench.study.PumpHead, 1.01088F);
  EXPECT_EQ(bench.study.TotalFlowM3h, 0.3F);
  for (const SectionRow& row : bench.Rows()) {
    EXPECT_EQ(row.PAR, 0.3F);
    EXPECT_EQ(row.DP, 1010.88F);
  }
}

// Two branches of 200 mm w.g. side by side.
void PutEqualBranches(TestBench& bench) {
  PutDrops(bench, {"ANT/1", "1/2 soma 300l/h 40mm", "1/3 soma 300l/h 40mm", "2/4", "3/4", "4/ANT"},
           {100, 50, 50, 20, 20, 30});
}

TEST(CriticalBranch, OfEqualOnesIsTheFirst) {
  TestBench bench;
  PutEqualBranches(bench);
  CriticalPassFlowOnly(bench.bench);
  EXPECT_EQ(bench.study.critical_branch, "1  -2  -4  -6  -");
}

TEST(CriticalBranch, AStartBehindAnEmitterTakesTheRowFoundLast) {
  TestBench bench;
  PutDrops(bench,
           {"ANT/1", "1/2 soma 300l/h 40mm", "1/5", "5/3 soma 300l/h 40mm", "2/4", "3/4", "4/ANT"},
           {100, 80, 10, 50, 20, 20, 30});
  CriticalPassFlowOnly(bench.bench);
  // 230 at the pump. Row 3 starts from row 1: 130 - 10, row 4 from row 3: 120 - 50. Before row 6
  // there is only row 4, which ends in an emitter: the search leaves row 3 in place, 120 - 20.
  EXPECT_EQ(Pressures(bench), (Floats{130, 50, 120, 70, 30, 100, 0}));
}

TEST(CriticalBranch, PostponedSectionsAreTriedTwiceAndThenStartFromNothing) {
  TestBench bench;
  PutDrops(bench, {"ANT/1", "c/d", "b/c", "a/b", "1/a", "1/8 soma 300l/h 400mm", "8/ANT"},
           {10, 1, 2, 3, 4, 500, 20});
  // Left over by a run that was broken off; no section of this network.
  ASSERT_TRUE(bench.workspace.Write(work_file::kPostponed, "77   6    ").ok());
  CriticalPassFlowOnly(bench.bench);
  // 530 - 10 = 520 behind row 1. Row 5 is known at once: 516. The first retry settles row 4: 513,
  // the second row 3: 511. Row 2 comes before row 3 in the second retry: 0 - 1.
  EXPECT_EQ(Pressures(bench), (Floats{520, -1, 511, 513, 516, 20, 0}));
  EXPECT_FALSE(bench.workspace.Exists(work_file::kPostponed));
}

TEST(CriticalBranch, PressuresAreRoundedAtEveryStep) {
  TestBench bench;
  PutDrops(bench, {"ANT/1", "1/2 soma 300l/h 1mm", "2/ANT"}, {0.014F, 0.014F, 0.014F});
  CriticalPassFlowOnly(bench.bench);
  // 0.042 - 0.014 = 0.028, so 0.03; 0.03 - 0.014 = 0.016, so 0.02; 0.02 - 0.014 = 0.006, so 0.01.
  EXPECT_EQ(Pressures(bench), (Floats{0.03F, 0.02F, 0.01F}));
}

TEST(CriticalBranch, RowOneStartsFromThePumpEvenOffTheBranch) {
  TestBench bench;
  PutDrops(bench, {"1/9", "ANT/1", "1/2 soma 300l/h 400mm", "2/ANT"}, {5, 100, 800, 100});
  CriticalPassFlowOnly(bench.bench);
  EXPECT_EQ(bench.study.critical_branch, "2  -3  -4  -");
  EXPECT_EQ(bench.Row(1).AvaiPres, 995.0F);
}

TEST(CriticalBranch, ASecondPassGivesTheSameRows) {
  TestBench bench;
  PutEqualBranches(bench);
  CriticalPassFlowOnly(bench.bench);
  const std::string once = bench.Bytes();
  CriticalPassFlowOnly(bench.bench);
  EXPECT_EQ(bench.Bytes(), once);
}

TEST(CriticalBranch, IsReadFromStoredDropsWithoutWriting) {
  TestBench bench;
  PutEqualBranches(bench);
  const std::string before = bench.Bytes();
  const CriticalBranch critical = ReadCriticalBranch(bench.study, RowTable(bench.Rows()));
  EXPECT_EQ(critical.chain, (Branch{1, 2, 4, 6}));
  EXPECT_EQ(critical.drop, 200.0F);
  EXPECT_EQ(bench.Bytes(), before);
  EXPECT_EQ(bench.study.PumpHead, 0.0F);
}

TEST(CriticalBranch, OfAnEmitterWithoutRowIsAFault) {
  TestBench bench;
  PutEqualBranches(bench);
  bench.study.EmitterTable.push_back({40, 100, 5});
  EXPECT_EQ(FaultOf([&] { CriticalPassFlowOnly(bench.bench); }), 63);
}

}  // namespace
}  // namespace kalvo

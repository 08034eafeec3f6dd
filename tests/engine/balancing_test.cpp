#include "engine/balancing.h"

#include <gtest/gtest.h>

#include <map>

#include "engine/pipe_stats.h"
#include "engine/trap.h"
#include "tests/support/faults.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

std::string NameOf(const SectionRow& row) { return row.NomiDiam.Utf8(); }

std::vector<std::string> Diameters(const TestBench& bench) {
  std::vector<std::string> names;
  for (const SectionRow& row : bench.Rows()) {
    names.push_back(NameOf(row));
  }
  return names;
}

using Names = std::vector<std::string>;

// Two emitters behind a common way out (2, 3) and back (8), and one far dearer beside them.
const std::vector<std::string_view> kShared = {
    "ANT/1 5m 12000l/h",          "1/2 5m 6000l/h", "2/3 5m 6000l/h",   "3/4 5m soma 3000l/h 100mm",
    "3/5 5m soma 3000l/h 100mm",  "4/6 5m 3000l/h", "5/6 5m 3000l/h",   "6/7 5m 6000l/h",
    "1/8 5m soma 6000l/h 9000mm", "8/7 5m 6000l/h", "7/ANT 5m 12000l/h"};

// Lengths of the quantities that are not 0, by nominal diameter.
std::map<std::string, float> Lengths(const Study& study) {
  std::map<std::string, float> lengths;
  for (const StatRow& line : study.PipeStats) {
    if (line.Length != 0.0F) {
      lengths[line.NomiDiameter.Utf8()] = line.Length;
    }
  }
  return lengths;
}

TEST(Balancing, StepsEverySectionOfTheOtherBranchesOnce) {
  TestBench bench;
  bench.PutNetwork(kShared);
  SizePipes(bench.bench, 2);
  EXPECT_EQ(Diameters(bench),
            (Names{"2 1/2", "2", "2", "1 1/4", "1 1/4", "1 1/4", "1 1/4", "2", "2", "2", "2 1/2"}));
  EXPECT_EQ(Lengths(bench.study),
            (std::map<std::string, float>{{"2 1/2", 10}, {"2", 25}, {"1 1/4", 20}}));
  CriticalPassPressure(bench.bench);
  // Rows 3 and 8 are shared and marked: once. Row 2 ends either branch and gets its plant marker
  // back there: twice. Rows 1, 9, 10 and 11 are the critical branch's.
  EXPECT_EQ(Diameters(bench),
            (Names{"2 1/2", "1 1/4", "1 1/2", "1", "1", "1", "1", "1 1/2", "2", "2", "2 1/2"}));
  EXPECT_EQ(Lengths(bench.study),
            (std::map<std::string, float>{
                {"2 1/2", 10}, {"2", 10}, {"1 1/2", 10}, {"1 1/4", 5}, {"1", 20}}));
  EXPECT_EQ(bench.study.critical_branch, "1  -9  -10 -11 -");
}

TEST(Balancing, LeavesNoMarkBehind) {
  TestBench bench;
  bench.PutNetwork(kShared);
  SizePipes(bench.bench, 2);
  auto rows = bench.Rows();
  rows[8].Auxi = kSteppedDown;  // on the critical branch
  rows[9].Auxi = 2;             // the plant
  ASSERT_TRUE(bench.workspace.Rows().WriteAll(rows).ok());
  CriticalPassPressure(bench.bench);
  for (const SectionRow& row : bench.Rows()) {
    EXPECT_EQ(row.Auxi, row.RecordNumber == 10 ? 2 : 0) << row.RecordNumber;
  }
}

TEST(Balancing, NeverReachesTheLastBranch) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m 9000l/h", "1/2 5m soma 6000l/h 9000mm", "1/3 5m soma 3000l/h 100mm",
                    "2/4 5m 6000l/h", "3/4 5m 3000l/h", "4/ANT 5m 9000l/h"});
  SizePipes(bench.bench, 2);
  const Names sized = Diameters(bench);
  CriticalPassPressure(bench.bench);
  EXPECT_EQ(Diameters(bench), sized);
}

TEST(Balancing, SpendsNothingOfWhatTheCommonEndNeeds) {
  TestBench bench;
  bench.PutNetwork(kShared);
  SizePipes(bench.bench, 2);
  const Names sized = Diameters(bench);
  auto rows = bench.Rows();
  for (SectionRow& row : rows) {
    row.TotalDrop = row.RecordNumber < 9 ? 10.0F : 100.0F;
  }
  rows.back().TotalDrop = 20'000;
  ASSERT_TRUE(bench.workspace.Rows().WriteAll(rows).ok());
  CriticalPassPressure(bench.bench);
  EXPECT_EQ(Diameters(bench), sized);  // 200 are left for five sections: 27 a metre at the most
}

TEST(Balancing, OfOneEmitterDoesNothingButThePressures) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m 3000l/h", "1/2 5m soma 3000l/h 100mm", "2/ANT 5m 3000l/h"});
  SizePipes(bench.bench, 2);
  CriticalPassFlowOnly(bench.bench);
  const std::string before = bench.Bytes();
  CriticalPassPressure(bench.bench);
  EXPECT_EQ(bench.Bytes(), before);
}

// Sections 1 to 10 on pipes of the steel system, ready to be stepped down one branch at a time.
struct StepBench : TestBench {
  StepBench() {
    PutNetwork({"a/b 5m 3000l/h", "b/c 5m 3000l/h", "c/d 5m 3000l/h", "d/e 5m 3000l/h",
                "e/f 5m 3000l/h", "f/g 5m 3000l/h", "g/h 5m 3000l/h", "h/i 5m 3000l/h",
                "i/j 5m 3000l/h", "j/k 5m 3000l/h"});
    SizePipes(bench, 2);
    pass = *LoadPassConditions(bench);
    rows.emplace(workspace);
    critical.drop = 100'000;
  }

  void Run(const Branch& chain, float available) {
    critical.branches.push_back(chain);
    StepDownBranch(MakeBalanceContext(bench, *rows, pass, critical), chain, available);
  }

  SectionRow& At(int number) { return rows->At(number); }
  [[nodiscard]] std::string Name(int number) const { return NameOf(rows->At(number)); }

  PassConditions pass;
  std::optional<RowStore> rows;
  CriticalBranch critical;
};

// What the sizing chooses for 3000 l/h at 1 m/s, and the size below it.
const std::string kSized = "1 1/4";
const std::string kSmaller = "1";

TEST(StepDown, TakesTheSizeBelowWithTheMarkInThePlantsPlace) {
  StepBench step;
  step.Run({1, 2}, 9000);
  EXPECT_EQ(step.Name(2), kSmaller);
  const SectionRow& row = step.At(2);
  EXPECT_EQ(row.Auxi, kSteppedDown);
  EXPECT_EQ(row.InDiameter, 27.3F);
  EXPECT_EQ(row.Velocity, 1.42F);  // 4 * 3000 / (3.6 π 27.3²) = 1.4236
  // 1.1 * rate * (5 m - 2500 * 27.3 / (1000 λ))
  const double length = 5 - 2.5 * 27.3 / static_cast<double>(row.Lamda);
  EXPECT_NEAR(row.TotalDrop, 1.1 * row.FrictionRate * length, 0.1);
  EXPECT_EQ(step.At(1).Auxi, 0);  // the last one in hand got its marker back
}

TEST(StepDown, TakesOtherDropsByTheRateBefore) {
  StepBench step;
  step.At(2).OtherDrop_mm = 500;
  const double old_rate = step.At(2).FrictionRate;
  step.Run({1, 2}, 9000);
  const SectionRow& row = step.At(2);
  ASSERT_EQ(step.Name(2), kSmaller);
  const double length = 5 - 2.5 * 27.3 / static_cast<double>(row.Lamda) + 500 / old_rate;
  EXPECT_NEAR(row.TotalDrop, 1.1 * row.FrictionRate * length, 0.1);
}

TEST(StepDown, EndsTheBranchAtTheSmallestPipe) {
  StepBench step;
  step.At(2).NomiDiam = FixedText<15>::FromUtf8("3/8");
  const SectionRow before = step.At(2);
  step.Run({1, 2, 3}, 9000);
  EXPECT_EQ(step.Name(3), kSmaller);
  EXPECT_EQ(step.At(2).Auxi, before.Auxi);  // unwritten
  EXPECT_EQ(step.Name(1), kSized);          // not reached
}

TEST(StepDown, CountsASectionOnTheLargestPipeTwice) {
  StepBench step;
  const auto put_largest = [&step](float available) {
    step.At(2).NomiDiam = FixedText<15>::FromUtf8("4");
    step.At(2).InDiameter = -105.3F;
    step.At(1).TotalDrop = 500;
    step.At(2).TotalDrop = 1000;
    step.Run({1, 2}, available);
    return step.Name(1);
  };
  EXPECT_EQ(put_largest(2499), kSized);  // 500 + 1000 + 1000 exceed it
  EXPECT_EQ(put_largest(2500), kSmaller);
  EXPECT_EQ(step.Name(2), "4");
}

TEST(StepDown, BeginsOnlyWithinWhatIsAvailable) {
  StepBench step;
  step.At(1).TotalDrop = 300;
  step.At(2).TotalDrop = 300;
  step.Run({1, 2}, 599);
  EXPECT_EQ(step.Name(2), kSized);
  EXPECT_EQ(step.At(2).Auxi, 0);
}

TEST(StepDown, StaysWithinTheTargetRate) {
  StepBench step;
  // The running length counts refused sections too: J is 6000 / (1.5 * 5), then / (1.5 * 10), ...
  // 3000 l/h in 27.3 mm lose about 100 mm w.g. a metre.
  const float rate_below = [] {
    StepBench other;
    other.Run({1, 2}, 9000);
    return other.At(2).FrictionRate;
  }();
  const auto available = static_cast<float>(rate_below * 1.5 * 5);
  step.Run({1, 2}, available * 0.999F);
  EXPECT_EQ(step.Name(2), kSized);
  EXPECT_EQ(step.Name(1), kSized);
  step.Run({1, 2}, available * 1.001F);
  EXPECT_EQ(step.Name(2), kSmaller);
  EXPECT_EQ(step.Name(1), kSized);
}

TEST(StepDown, RefusesAPipeThatLosesMoreThanIsAvailable) {
  StepBench step;
  step.At(2).SomaDrop = 500'000;
  step.At(2).TotalDrop = 100;
  step.Run({1, 2}, 9000);
  EXPECT_EQ(step.Name(2), kSized);
  EXPECT_EQ(step.At(2).TotalDrop, 100.0F);
  EXPECT_EQ(step.Name(1), kSmaller);
}

TEST(StepDown, PassesOverAMarkedSection) {
  StepBench step;
  step.At(2).Auxi = kSteppedDown;
  step.Run({1, 2, 3}, 9000);
  EXPECT_EQ(step.Name(2), kSized);
  EXPECT_EQ(step.Name(1), kSmaller);
}

TEST(StepDown, KeepsEveryBranchBelowTheCriticalDropButReadsSectionTenFromTheRowInHand) {
  StepBench step;
  step.At(9).TotalDrop = step.At(10).TotalDrop = 200'000;
  step.critical.branches = {{4, 9}, {5, 10}};
  step.Run({1, 4}, 9000);
  step.Run({1, 5}, 9000);
  EXPECT_EQ(step.Name(4), kSized);
  EXPECT_EQ(step.Name(5), kSmaller);
}

TEST(StepDown, MovesTheQuantitiesAlong) {
  StepBench step;
  StartPipeStats(step.study, step.pass.library);
  step.At(2).Elbow90 = 3;
  AddToPipeStats(step.study, step.pass.library[4], step.At(2), step.At(2).Area);
  step.Run({1, 2}, 9000);
  const auto& lines = step.study.PipeStats;
  EXPECT_EQ(lines[4].Elbows, 0.0F);
  EXPECT_EQ(lines[3].Elbows, 3.0F);
  EXPECT_FLOAT_EQ(lines[3].FluidVolume, 10 * step.At(2).Area);  // rows 1 and 2
}

TEST(StepDown, QuantitiesMoveToASmallerPipeOnly) {
  StepBench step;
  const std::map<std::string, float> before = Lengths(step.study);
  MoveInPipeStats(step.study, "3/8", step.At(1));
  MoveInPipeStats(step.study, kSized, step.At(1));
  MoveInPipeStats(step.study, "  ", step.At(1));
  EXPECT_EQ(Lengths(step.study), before);
}

TEST(StepDown, OnNothingAvailableIsAFaultAndEndsTheRun) {
  StepBench step;
  EXPECT_EQ(FaultOf([&] { step.Run({}, 0); }), 6);
  step.At(2).TotalDrop = -5;
  EXPECT_EQ(FaultOf([&] { step.Run({2}, 0); }), 11);
  RunTrapped(step.bench, [&] { step.Run({}, 0); });
  EXPECT_EQ(step.study.CalcStatus, -32);
}

TEST(StepDown, WithoutALibraryRowBeforeIsAFault) {
  StepBench step;
  step.pass.library.erase(step.pass.library.begin(), step.pass.library.begin() + 4);
  EXPECT_EQ(FaultOf([&] { step.Run({1, 2}, 9000); }), 63);
}

}  // namespace
}  // namespace kalvo

#include "engine/balancing.h"

#include <gtest/gtest.h>

#include <map>

#include "engine/pipe_stats.h"
#include "engine/trap.h"
#include "tests/support/faults.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

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

// A network sized for the second method.
struct SizedBench : TestBench {
  explicit SizedBench(const std::vector<std::string_view>& lines) {
    PutNetwork(lines);
    SizePipes(bench, Method::kFlowAndPressure);
  }
};

TEST(Balancing, StepsEverySectionOfTheOtherBranchesOnce) {
  SizedBench bench(kShared);
  EXPECT_EQ(bench.Diameters(),
            (Names{"2 1/2", "2", "2", "1 1/4", "1 1/4", "1 1/4", "1 1/4", "2", "2", "2", "2 1/2"}));
  EXPECT_EQ(Lengths(bench.study),
            (std::map<std::string, float>{{"2 1/2", 10}, {"2", 25}, {"1 1/4", 20}}));
  CriticalPassPressure(bench.bench);
  // Rows 3 and 8 are shared and marked: once. Row 2 ends either branch and gets its plant marker
  // back there: twice. Rows 1, 9, 10 and 11 are the critical branch's.
  EXPECT_EQ(bench.Diameters(),
            (Names{"2 1/2", "1 1/4", "1 1/2", "1", "1", "1", "1", "1 1/2", "2", "2", "2 1/2"}));
  EXPECT_EQ(Lengths(bench.study),
            (std::map<std::string, float>{
                {"2 1/2", 10}, {"2", 10}, {"1 1/2", 10}, {"1 1/4", 5}, {"1", 20}}));
  EXPECT_EQ(bench.study.critical_branch, "1  -9  -10 -11 -");
}

TEST(Balancing, LeavesNoMarkBehind) {
  SizedBench bench(kShared);
  bench.ChangeRow(9, [](SectionRow& row) { row.Auxi = kSteppedDown; });  // on the critical branch
  bench.ChangeRow(10, [](SectionRow& row) { row.Auxi = 2; });            // the plant
  CriticalPassPressure(bench.bench);
  EXPECT_EQ(bench.Column(&SectionRow::Auxi),
            (std::vector<std::int16_t>{0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0}));
}

TEST(Balancing, GivesThePlantSectionItsMarkBack) {
  for (const int plant : {2, 3, 5, 8}) {
    SizedBench bench(kShared);
    bench.ChangeRow(plant, [&](SectionRow& row) { row.Auxi = PlantMark(plant); });
    CriticalPassPressure(bench.bench);
    std::vector<std::int16_t> marks(11);
    marks[static_cast<std::size_t>(plant - 1)] = PlantMark(plant);
    EXPECT_EQ(bench.Column(&SectionRow::Auxi), marks) << "plant " << plant;
  }
}

TEST(Balancing, NeverReachesTheLastBranch) {
  SizedBench bench({"ANT/1 5m 9000l/h", "1/2 5m soma 6000l/h 9000mm", "1/3 5m soma 3000l/h 100mm",
                    "2/4 5m 6000l/h", "3/4 5m 3000l/h", "4/ANT 5m 9000l/h"});
  const Names sized = bench.Diameters();
  CriticalPassPressure(bench.bench);
  EXPECT_EQ(bench.Diameters(), sized);
}

TEST(Balancing, SpendsNothingOfWhatTheCommonEndNeeds) {
  SizedBench bench(kShared);
  const Names sized = bench.Diameters();
  for (int number = 1; number <= 11; ++number) {
    const float drop = number == 11 ? 20'000.0F : number < 9 ? 10.0F : 100.0F;
    bench.ChangeRow(number, [drop](SectionRow& row) { row.TotalDrop = drop; });
  }
  CriticalPassPressure(bench.bench);
  EXPECT_EQ(bench.Diameters(), sized);  // 200 are left for five sections: 27 a metre at the most
}

TEST(Balancing, OfOneEmitterDoesNothingButThePressures) {
  SizedBench bench({"ANT/1 5m 3000l/h", "1/2 5m soma 3000l/h 100mm", "2/ANT 5m 3000l/h"});
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
    SizePipes(bench, Method::kFlowAndPressure);
    pass = *TakePassConditions(bench);
    rows.emplace(Rows());
    critical.drop = 100'000;
  }

  void Run(const Branch& chain, float available) {
    critical.branches.push_back(chain);
    StepDownBranch(MakeBalanceContext(study, *rows, pass, critical), chain, available);
  }

  SectionRow& At(int number) { return rows->At(number); }
  [[nodiscard]] std::string Name(int number) const { return rows->At(number).NomiDiam.Utf8(); }

  PassConditions pass;
  std::optional<RowTable> rows;
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

// What becomes of sections 1 to 5: "v" on the smaller pipe, "=" on the one sized, "." on another.
template <typename Prepare>
std::string After(Prepare prepare, const Branch& chain, float available) {
  StepBench step;
  prepare(step);
  const SectionRow before = step.At(2);
  step.Run(chain, available);
  std::string text;
  for (int number = 1; number <= 5; ++number) {
    const std::string name = step.Name(number);
    text += name == kSmaller ? "v" : name == kSized ? "=" : ".";
  }
  EXPECT_TRUE(text[1] == 'v' || step.At(2).Auxi == before.Auxi) << "written";
  return text;
}

TEST(StepDown, EndsAtTheSmallestPipeAndPassesOverAMarkedSection) {
  const auto put_smallest = [](StepBench& step) {
    step.At(2).NomiDiam = FixedText<15>::FromUtf8("3/8");
  };
  EXPECT_EQ(After(put_smallest, {1, 2, 3}, 9000), "=.v==");
  const auto mark = [](StepBench& step) { step.At(2).Auxi = kSteppedDown; };
  EXPECT_EQ(After(mark, {1, 2, 3}, 9000), "v=v==");
}

TEST(StepDown, ThatPutsThePlantsMarkOnAnotherRowDoesNotLeaveItThere) {
  StepBench step;
  step.At(1).AvaiPres = 9000;
  step.At(5).Auxi = PlantMark(5);
  step.critical.chain = {1, 9, 10};
  // The second branch ends at section 3, which the first has marked, with section 5's mark in hand.
  step.critical.branches = {{1, 2, 3, 10}, {1, 3, 5, 10}, {1, 9, 10}, {1, 10}};
  BalanceBranches(MakeBalanceContext(step.study, *step.rows, step.pass, step.critical),
                  [](const auto&) {});
  EXPECT_EQ(step.Name(5), kSmaller);
  for (int number = 1; number <= 10; ++number) {
    EXPECT_EQ(step.At(number).Auxi, number == 5 ? PlantMark(5) : 0) << number;
  }
}

TEST(StepDown, BeginsOnlyWithinWhatIsAvailableAndCountsTheLargestPipeTwice) {
  const auto put_drops = [](StepBench& step) { step.At(1).TotalDrop = step.At(2).TotalDrop = 300; };
  EXPECT_EQ(After(put_drops, {1, 2}, 599), "=====");
  const auto put_largest = [](StepBench& step) {
    step.At(2).NomiDiam = FixedText<15>::FromUtf8("4");
    step.At(2).InDiameter = -105.3F;
    step.At(1).TotalDrop = 500;
    step.At(2).TotalDrop = 1000;
  };
  EXPECT_EQ(After(put_largest, {1, 2}, 2499), "=.===");  // 500 + 1000 + 1000 exceed it
  EXPECT_EQ(After(put_largest, {1, 2}, 2500), "v.===");
}

TEST(StepDown, KeepsEveryBranchBelowTheCriticalDropButReadsSectionTenFromTheRowInHand) {
  const auto put_dear = [](StepBench& step) {
    step.At(9).TotalDrop = step.At(10).TotalDrop = 200'000;
    step.critical.branches = {{4, 9}, {5, 10}};
  };
  EXPECT_EQ(After(put_dear, {1, 4}, 9000)[3], '=');
  EXPECT_EQ(After(put_dear, {1, 5}, 9000)[4], 'v');
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
  EXPECT_TRUE(RunTrapped(step.bench, [&] { step.Run({}, 0); }));
}

TEST(StepDown, WithoutALibraryRowBeforeIsAFault) {
  StepBench step;
  step.pass.library.erase(step.pass.library.begin(), step.pass.library.begin() + 4);
  EXPECT_EQ(FaultOf([&] { step.Run({1, 2}, 9000); }), 63);
}

}  // namespace
}  // namespace kalvo

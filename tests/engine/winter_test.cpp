#include "engine/winter.h"

#include <gtest/gtest.h>

#include "engine/calculation_command.h"
#include "engine/hydraulics.h"
#include "study/fluid_library.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

// A network calculated for summer.
class Winter : public testing::Test {
 protected:
  Winter() {
    bench.PutNetwork({"ANT/1 5m plant", "1/2 5m soma 300l/h 500mm", "1/3 5m soma 200l/h 400mm",
                      "2/4 5m", "3/4 5m", "4/ANT 5m"});
    EXPECT_EQ(Calculate(bench.bench, Method::kFlowOnly), CommandEnd::kCalculated);
    bench.study.results_valid = true;
    lines = SummerValues(bench.bench);
    lines[0].flow_lh = 250;
    lines[1].flow_lh = 150;
  }

  WinterOutcome Run(float temperature = 60, const AcceptFlow& accept = {}) {
    return WinterDuty(bench.bench).Run(temperature, lines, accept);
  }

  TestBench bench;
  std::vector<WinterLine> lines;
};

TEST_F(Winter, KeepsSummersPipesAndLeavesItsRowsAndValues) {
  const std::string summer = bench.Bytes();
  const float head = bench.study.PumpHead;
  lines[1].length_m = 8;
  ASSERT_EQ(Run(59.5F).end, WinterEnd::kCalculated);
  EXPECT_EQ(bench.Bytes(), summer);
  EXPECT_EQ(bench.Bytes(work_file::kSummerRows), summer);
  EXPECT_EQ(bench.study.PumpHead, head);
  EXPECT_EQ(bench.study.MeanTemp, 70.0F);
  EXPECT_EQ(bench.study.EmitterTable[0].flow_lh, 300.0);
  const auto rows = bench.Rows(work_file::kWinter);
  EXPECT_EQ(rows[0].WaterFlow, 400.0F);
  EXPECT_EQ(rows[0].NomiDiam, bench.Row(1).NomiDiam);
  EXPECT_EQ(rows[0].MeanVel, 0.0F);
  EXPECT_EQ(rows[0].KLEIS, 1);
  EXPECT_EQ(rows[0].PAR, 0.4F);
  EXPECT_EQ(rows[2].Length, 8.0F);
}

TEST_F(Winter, TakesTheFluidAtTheWholeDegree) {
  for (const auto& [temperature, whole] : {std::pair{59.5F, 59.0F}, std::pair{59.6F, 60.0F}}) {
    ASSERT_EQ(Run(temperature).end, WinterEnd::kCalculated);
    const SectionRow row = bench.Rows(work_file::kWinter).at(0);
    EXPECT_EQ(row.MeanTemp, temperature);
    EXPECT_EQ(row.Reynolds, ReynoldsOf(row.InDiameter, row.Velocity, WaterViscosity(whole)));
  }
}

TEST_F(Winter, AFluidStatedForTheWholeDegreeFits) {
  FluidRow glycol = WaterRow(bench.workspace);
  glycol.name = decltype(glycol.name)::FromUtf8("Γλυκόλη");
  glycol.mean_temperature = 60;
  glycol.viscosity = 1.2F;
  ASSERT_TRUE(WriteStudyFluid(bench.bench, glycol).ok());
  bench.study.fluid_name = "Γλυκόλη";
  EXPECT_EQ(Run(59.6F).end, WinterEnd::kCalculated);
  EXPECT_EQ(Run(59.5F).end, WinterEnd::kViscosity);
}

TEST_F(Winter, NeedsSummersResultsAndATemperatureWithinBounds) {
  for (const auto& [temperature, end] :
       {std::pair{30.0F, WinterEnd::kCalculated}, std::pair{100.0F, WinterEnd::kCalculated},
        std::pair{29.9F, WinterEnd::kTemperature}, std::pair{100.1F, WinterEnd::kTemperature}}) {
    EXPECT_EQ(Run(temperature).end, end) << temperature;
  }
  auto rows = bench.Rows();
  rows[0].DP = 0;
  ASSERT_TRUE(bench.workspace.Rows().WriteAll(rows).ok());
  EXPECT_EQ(Run().end, WinterEnd::kRefused);
  EXPECT_EQ(bench.prompter.codes(), (std::vector<int>{405, 405, 403}));
}

TEST_F(Winter, StopsAtTheFirstValueThatIsNothing) {
  lines[1] = {3, 0, 0, 0};
  lines[0].drop = 0;
  const std::vector<std::pair<WinterValue, float*>> order = {
      {WinterValue::kDrop, &lines[0].drop},
      {WinterValue::kLength, &lines[1].length_m},
      {WinterValue::kFlow, &lines[1].flow_lh},
      {WinterValue::kDrop, &lines[1].drop}};
  for (const auto& [value, field] : order) {
    const WinterOutcome outcome = Run();
    EXPECT_EQ(outcome.end, WinterEnd::kBadValue);
    EXPECT_EQ(outcome.value, value);
    *field = 5;
  }
  EXPECT_FALSE(bench.workspace.Exists(work_file::kWinter));
  EXPECT_EQ(Run().end, WinterEnd::kCalculated);
}

TEST_F(Winter, AsksAboutFlowsThatAreNotBelowSummers) {
  lines[0].flow_lh = 300;
  lines[1].flow_lh = 201;
  std::vector<std::pair<int, float>> asked;  // section, summer's flow
  const auto only_first = [&asked](const WinterLine& line, float summer_flow_lh) {
    asked.emplace_back(line.section, summer_flow_lh);
    return asked.size() == 1;
  };
  const WinterOutcome outcome = Run(60, only_first);
  EXPECT_EQ(outcome.end, WinterEnd::kDeclined);
  EXPECT_EQ(outcome.line, 1U);
  EXPECT_EQ(asked, (std::vector<std::pair<int, float>>{{2, 300.0F}, {3, 200.0F}}));
  EXPECT_EQ(Run(60, [](const WinterLine&, float) { return true; }).end, WinterEnd::kCalculated);
  EXPECT_EQ(Run().end, WinterEnd::kDeclined);
}

TEST_F(Winter, TheCloseKeepsWhatTheUserWantsKept) {
  ASSERT_TRUE(bench.workspace.Write(work_file::kWinter, "loaded").ok());
  for (const WinterData data : {WinterData::kDropped, WinterData::kKept}) {
    WinterDuty duty(bench.bench);
    ASSERT_EQ(duty.Run(60, lines).end, WinterEnd::kCalculated);
    duty.Close();
    duty.Settle(data);
    EXPECT_EQ(bench.Bytes(work_file::kWinter) == "loaded", data == WinterData::kDropped);
    EXPECT_EQ(bench.study.unsaved_changes, data == WinterData::kKept);
    EXPECT_FALSE(bench.workspace.Exists(work_file::kSummerRows));
  }
}

TEST_F(Winter, ComparesAnEmitterWithinTheTrunkByItsOwnFlow) {
  bench.PutNetwork(
      {"ANT/1 5m plant", "1/2 5m soma 100l/h 50mm", "2/3 5m soma 400l/h 400mm", "3/ANT 5m"});
  ASSERT_EQ(Calculate(bench.bench, Method::kFlowOnly), CommandEnd::kCalculated);
  bench.study.results_valid = true;
  lines = SummerValues(bench.bench);
  EXPECT_EQ(lines[0].flow_lh, 100.0F);  // and not the 500 that pass its section
  lines[0].flow_lh = 150;
  lines[1].flow_lh = 300;
  EXPECT_EQ(Run().end, WinterEnd::kDeclined);
}

TEST_F(Winter, IsNotForResultsThatAnEditMadeVoid) {
  bench.study.results_valid = false;
  EXPECT_EQ(Run().end, WinterEnd::kRefused);
  EXPECT_EQ(bench.prompter.codes(), std::vector<int>{403});
}

TEST_F(Winter, PutsSummersRowsBackThatAnInterruptedDutyLeft) {
  const std::string summer = bench.Bytes();
  ASSERT_TRUE(bench.workspace.Write(work_file::kSummerRows, summer).ok());
  ASSERT_TRUE(bench.workspace.Write(work_file::kRows, summer.substr(0, 355)).ok());
  WinterDuty duty(bench.bench);
  EXPECT_EQ(bench.Bytes(), summer);
}

}  // namespace
}  // namespace kalvo

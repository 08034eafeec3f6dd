#include "engine/sizing.h"

#include <gtest/gtest.h>

#include "engine/driver.h"
#include "study/fluid_library.h"
#include "tests/support/faults.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

PipeRow Pipe(int id, std::string_view name, float diameter_mm, float area_mm2) {
  PipeRow pipe;
  pipe.pipe_id = static_cast<std::int16_t>(id);
  pipe.material = FixedText<30>::FromUtf8(kSteelWord);
  pipe.nominal_diameter = FixedText<12>::FromUtf8(name);
  pipe.inner_diameter = diameter_mm;
  pipe.area = area_mm2;
  pipe.roughness = 0.045F;
  return pipe;
}

// Three sizes of 100, 400 and 1600 mm²: at 1 m/s they carry 360, 1440 and 5760 l/h.
const std::vector<PipeRow> kThreeSizes = {Pipe(1, "S", 11.28F, 100), Pipe(2, "M", 22.57F, 400),
                                          Pipe(3, "L", 45.14F, 1600)};

void PutOnThreeSizes(TestBench& bench, const std::vector<std::string_view>& lines) {
  PutPipes(bench, PipeFileName(1), kThreeSizes);
  bench.PutNetwork(lines);
}

std::string Diameters(const TestBench& bench) {
  std::string names;
  for (const SectionRow& row : bench.Rows()) {
    names += row.NomiDiam.Trimmed().empty() ? "-" : row.NomiDiam.Utf8();
  }
  return names;
}

// Lengths of the quantities, line by line.
std::vector<float> LineLengths(const Study& study) {
  std::vector<float> lengths;
  for (const StatRow& line : study.PipeStats) {
    lengths.push_back(line.Length);
  }
  return lengths;
}

TEST(Sizing, TakesTheFirstPipeWhoseAreaIsNotBelow) {
  TestBench bench;
  PutOnThreeSizes(bench, {"ANT/1 360l/h", "1/2 360.1l/h", "2/3 1440l/h", "3/ANT 5760l/h"});
  SizePipes(bench.bench, Method::kFlowOnly);
  EXPECT_EQ(Diameters(bench), "SMML");
  EXPECT_EQ(bench.Row(4).Area, 0.0016F);
  EXPECT_EQ(bench.Row(4).INILAMDA, 1.0F);
  EXPECT_EQ(bench.study.MeanVel, 1.0F);
}

TEST(Sizing, AFlowBeyondTheLibraryRaisesTheVelocityForTheRest) {
  TestBench bench;
  PutOnThreeSizes(bench, {"ANT/1 1000l/h", "1/2 6000l/h", "2/ANT 1000l/h"});
  SizePipes(bench.bench, Method::kFlowAndPressure);
  EXPECT_EQ(Diameters(bench), "MLS");
  EXPECT_EQ(bench.study.MeanVel, 34'560'000.0F);  // 0.0016 m² * 6000 l/h * 3600 * 1000
  EXPECT_EQ(bench.Row(3).INILAMDA, 2.0F);
}

TEST(Sizing, TheDesignVelocityIsBackAtTheEndOfARun) {
  TestBench bench;
  PutOnThreeSizes(bench, {"ANT/1 6000l/h", "1/2 6000l/h soma 5mm", "2/ANT 6000l/h"});
  RunCalculation(bench.bench);
  EXPECT_EQ(Diameters(bench), "LSS");
  EXPECT_EQ(bench.study.MeanVel, 1.0F);
}

TEST(Sizing, CountsTheSectionOnTheLineOfThePipesCode) {
  TestBench bench;
  PutOnThreeSizes(bench, {"ANT/1 360l/h 7m", "1/2 1440l/h 5m 3elbows", "2/ANT 1440l/h 4m"});
  auto swapped = kThreeSizes;
  swapped[0].pipe_id = 2;
  swapped[1].pipe_id = 1;
  PutPipes(bench, PipeFileName(1), swapped);
  SizePipes(bench.bench, Method::kFlowOnly);
  EXPECT_EQ(LineLengths(bench.study), (std::vector<float>{7, 9, 0}));
  EXPECT_EQ(bench.study.PipeStats[1].RecordNumber, 1);
  EXPECT_EQ(bench.study.PipeStats[1].Corners, 3.0F);
  EXPECT_FLOAT_EQ(bench.study.PipeStats[1].FluidVolume, 0.0036F);

  // Two sizes of one code: the first line takes both.
  swapped[0].pipe_id = 1;
  PutPipes(bench, PipeFileName(1), swapped);
  SizePipes(bench.bench, Method::kFlowOnly);
  EXPECT_EQ(LineLengths(bench.study), (std::vector<float>{16, 0, 0}));
  EXPECT_EQ(bench.study.PipeStats[0].NomiDiameter.Utf8(), "M");  // refreshed by the last
}

TEST(Sizing, ThatFailsLeavesThatRowAndTheRestUntouched) {
  TestBench bench;
  PutOnThreeSizes(bench, {"ANT/1 360l/h", "1/2 0l/h", "2/ANT 360l/h"});
  const std::string before = bench.Bytes();
  EXPECT_EQ(FaultOf([&] { SizePipes(bench.bench, Method::kFlowOnly); }), 6);
  const std::string after = bench.Bytes();
  EXPECT_EQ(Diameters(bench), "S--");
  EXPECT_EQ(after.substr(355), before.substr(355));
}

TEST(Sizing, WithoutDesignVelocityIsADivisionByZero) {
  TestBench bench;
  PutOnThreeSizes(bench, {"ANT/1 360l/h", "1/ANT 360l/h"});
  bench.study.MeanVel = 0;
  EXPECT_EQ(FaultOf([&] { SizePipes(bench.bench, Method::kFlowOnly); }), 11);
}

FluidRow Brine(float density, float temperature) {
  FluidRow fluid;
  fluid.name = FixedText<50>::FromUtf8("Άλμη");
  fluid.mean_temperature = temperature;
  fluid.viscosity = 2;
  fluid.density = density;
  return fluid;
}

// A network whose study is on a fluid of that density and temperature.
struct BrineBench : TestBench {
  BrineBench(float density, float temperature) {
    PutOnThreeSizes(*this, {"ANT/1 360l/h", "1/ANT 360l/h"});
    study.fluid_name = "Άλμη";
    EXPECT_TRUE(WriteStudyFluid(bench, Brine(density, temperature)).ok());
  }
  float Density() { return TakePassConditions(bench)->flow.density; }
};

TEST(Fluid, OfAnotherTemperatureTouchesNoRow) {
  BrineBench bench(1100, 69);
  const std::string before = bench.Bytes();
  SizePipes(bench.bench, Method::kFlowOnly);
  EXPECT_EQ(bench.Bytes(), before);
  ASSERT_EQ(bench.prompter.boxes().size(), 1U);
  EXPECT_EQ(bench.prompter.boxes()[0].title, "...!! ΠΡΟΣΟΧΗ !!...");
  EXPECT_EQ(bench.prompter.boxes()[0].lines.back(),
            "                                 ...!! ΔΙΟΡΘΩΣΤΕ ΑΝΑΛΟΓΩΣ !!...");
}

TEST(Fluid, GivesItsOwnViscosityAndADensityThatIsHeldUntilAnotherIsWritten) {
  BrineBench bench(1100, 70);
  const auto pass = TakePassConditions(bench.bench);
  ASSERT_TRUE(pass);
  EXPECT_EQ(pass->flow.viscosity, 2e-6F);
  EXPECT_EQ(pass->flow.density, 1100.0F);
  EXPECT_EQ(pass->flow.roughness, 0.045F);
  // The file changes without the study's knowing.
  ASSERT_TRUE(bench.workspace.Rows<FluidRow>(work_file::kFluid).Write(1, Brine(900, 70)).ok());
  EXPECT_EQ(bench.Density(), 1100.0F);
  ASSERT_TRUE(WriteStudyFluid(bench.bench, Brine(950, 70)).ok());
  EXPECT_EQ(bench.Density(), 950.0F);
}

TEST(Fluid, MissingFileMeansWaterOfAThousand) {
  BrineBench bench(1100, 70);
  bench.study.Density = 0;
  bench.workspace.Delete(work_file::kFluid);
  EXPECT_EQ(FaultOf([&] { TakePassConditions(bench.bench); }), 57);
  bench.study.fluid_name = kWaterName;
  EXPECT_EQ(bench.Density(), 1000.0F);
}

TEST(Recalculation, KeepsDiametersAndMethod) {
  TestBench bench;
  PutOnThreeSizes(bench, {"ANT/1 360l/h 7m 2elbows", "1/2 360l/h 6m", "2/ANT 360l/h 5m"});
  SizePipes(bench.bench, Method::kFlowAndPressure);
  bench.ChangeRow(1, [](SectionRow& row) { row.InDiameter = -22.57F; });
  bench.ChangeRow(2, [](SectionRow& row) { row.InDiameter = 16.0F; });  // no size of the library
  RecalculateRows(bench.bench);
  EXPECT_EQ(bench.Row(1).InDiameter, -22.57F);
  EXPECT_EQ(bench.Row(1).INILAMDA, 2.0F);
  EXPECT_EQ(bench.Row(1).Velocity, 0.25F);
  EXPECT_EQ(bench.Row(1).Area, 0.0001F);  // stays that of the sizing
  EXPECT_EQ(LineLengths(bench.study), (std::vector<float>{5, 7, 6}));
}

TEST(Recalculation, OfCopperTakesItsFittings) {
  // An elbow at 20 mm: 1.5 in either material; at 50 mm 1.0 in steel and copper; at 60 mm 1.0 in
  // steel and 0.5 in copper.
  TestBench bench;
  bench.PutNetwork({"ANT/1 9000l/h 0m 10elbows", "1/ANT 9000l/h 0m 10elbows"});
  auto rows = bench.Rows();
  rows[0].InDiameter = rows[1].InDiameter = 60;
  rows[1].Material = FixedText<78>::FromUtf8(kCopperWord);
  bench.PutRows(rows);
  RecalculateRows(bench.bench);
  EXPECT_NEAR(bench.Row(1).TotalDrop, 2 * bench.Row(2).TotalDrop, 0.02);
  EXPECT_GT(bench.Row(2).TotalDrop, 100.0F);
}

}  // namespace
}  // namespace kalvo

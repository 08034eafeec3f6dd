#include "study/fluid_library.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

const std::filesystem::path kLibraryFile =
    std::filesystem::path(TestBench::kLibraryFolder) / "Liquids.dat";

FluidRow Brine(int number, const std::string& name = "Άλμη") {
  FluidRow fluid;
  fluid.row_number = static_cast<std::int16_t>(number);
  fluid.name = FixedText<50>::FromUtf8(name);
  fluid.mean_temperature = -10;
  fluid.reserved1 = 7;
  fluid.viscosity = 4.5F;
  fluid.density = 1180;
  return fluid;
}

// Rows as "number name".
std::vector<std::string> Listing(const TestBench& bench) {
  std::vector<std::string> lines;
  const auto fluids = ReadFluids(bench.workspace);
  for (const FluidRow& fluid : *fluids) {
    lines.push_back(std::to_string(fluid.row_number) + " " + fluid.name.Utf8());
  }
  return lines;
}

TEST(FluidLibrary, IsCreatedWithWaterAndGlycolWhenMissingOnly) {
  TestBench bench;
  const auto fluids = ReadFluids(bench.workspace);
  ASSERT_EQ(fluids->size(), 2U);
  EXPECT_EQ(fluids->front().name.Utf8(), "Νερό");
  EXPECT_EQ(fluids->front().mean_temperature, -10000.0F);
  EXPECT_EQ(fluids->front().viscosity, -10000.0F);
  EXPECT_EQ(fluids->front().density, 1000.0F);
  EXPECT_EQ(fluids->back().name.Utf8(), "Διάλυμα 25% Προπυλενικής Γλυκόλης σε Νερό");
  EXPECT_EQ(fluids->back().mean_temperature, -6.0F);
  EXPECT_EQ(fluids->back().viscosity, 0.00085F);
  EXPECT_EQ(fluids->back().density, 1260.0F);
  ASSERT_TRUE(SaveFluid(bench.workspace, Brine(2)).ok());
  ASSERT_TRUE(CreateFluidLibrary(bench.workspace).ok());
  EXPECT_EQ(Listing(bench), (std::vector<std::string>{"1 Νερό", "2 Άλμη"}));
}

TEST(FluidLibrary, FluidIsWrittenAtItsNumberOrOneBehindTheLast) {
  TestBench bench;
  ASSERT_TRUE(SaveFluid(bench.workspace, Brine(3)).ok());
  EXPECT_FALSE(SaveFluid(bench.workspace, Brine(5)).ok());
  EXPECT_EQ(Listing(bench).back(), "3 Άλμη");
}

TEST(FluidLibrary, DeletingRenumbersTheRowsBehindAndLeavesNothingBeside) {
  TestBench bench;
  ASSERT_TRUE(SaveFluid(bench.workspace, Brine(3, "Γ")).ok());
  ASSERT_TRUE(SaveFluid(bench.workspace, Brine(4, "Δ")).ok());
  ASSERT_TRUE(DeleteFluid(bench.workspace, 2).ok());
  EXPECT_EQ(Listing(bench), (std::vector<std::string>{"1 Νερό", "2 Γ", "3 Δ"}));
  EXPECT_EQ(ReadFluids(bench.workspace)->back().reserved1, 7.0F);
  EXPECT_FALSE(bench.outer_disk.Exists(kLibraryFile.parent_path() / "Liquids.@@@"));
}

TEST(FluidLibrary, WaterStaysAsItIsAndRowsThatAreNotThereAreNotDeleted) {
  TestBench bench;
  ASSERT_TRUE(SaveFluid(bench.workspace, Brine(1)).ok());
  for (const int number : {-1, 0, 1, 3}) {
    ASSERT_TRUE(DeleteFluid(bench.workspace, number).ok());
  }
  EXPECT_EQ(Listing(bench),
            (std::vector<std::string>{"1 Νερό", "2 Διάλυμα 25% Προπυλενικής Γλυκόλης σε Νερό"}));
}

TEST(FluidLibrary, OddLengthIsRefusedAndLeftAlone) {
  TestBench bench;
  ASSERT_TRUE(bench.outer_disk.Write(kLibraryFile, std::string(143, 'x')).ok());
  EXPECT_FALSE(ReadFluids(bench.workspace).ok());
  EXPECT_FALSE(SaveFluid(bench.workspace, Brine(2)).ok());
  EXPECT_FALSE(DeleteFluid(bench.workspace, 2).ok());
  EXPECT_EQ(bench.outer_disk.Read(kLibraryFile)->size(), 143U);
  EXPECT_EQ(WaterRow(bench.workspace).name.Utf8(), "Νερό");
}

TEST(StudyFluid, IsTakenFromTheStudysOwnFile) {
  TestBench bench;
  bench.study.Density = 900;
  ASSERT_TRUE(WriteStudyFluid(bench.bench, Brine(3)).ok());
  EXPECT_EQ(bench.study.Density, 0.0F);
  bench.study.Density = 900;
  ASSERT_TRUE(LoadStudyFluid(bench.bench).ok());
  EXPECT_EQ(bench.study.fluid_name, "Άλμη");
  EXPECT_EQ(bench.study.Density, 0.0F);
}

TEST(StudyFluid, FallsBackToTheLibrarysFirstRowWhichBecomesItsOwn) {
  TestBench bench;
  bench.study.fluid_name = "Άλμη";
  bench.workspace.Delete(work_file::kFluid);
  ASSERT_TRUE(LoadStudyFluid(bench.bench).ok());
  EXPECT_EQ(bench.study.fluid_name, "Νερό");
  EXPECT_EQ(bench.Bytes(work_file::kFluid), bench.outer_disk.Read(kLibraryFile)->substr(0, 72));
  EXPECT_TRUE(bench.study.fluid_assumed) << "the user is warned";
}

TEST(StudyFluid, IsWaterWithoutAnyLibrary) {
  TestBench bench;
  bench.workspace.Delete(work_file::kFluid);
  ASSERT_TRUE(bench.outer_disk.Remove(kLibraryFile).ok());
  ASSERT_TRUE(LoadStudyFluid(bench.bench).ok());
  const auto fluid = bench.workspace.Rows<FluidRow>(work_file::kFluid).Read(1);
  EXPECT_EQ(fluid->row_number, 1);
  EXPECT_EQ(fluid->density, 1000.0F);
  EXPECT_FALSE(bench.outer_disk.Exists(kLibraryFile));
}

TEST(StudyFluid, AnEmptyFileStaysEmpty) {
  TestBench bench;
  ASSERT_TRUE(bench.workspace.Write(work_file::kFluid, "").ok());
  ASSERT_TRUE(LoadStudyFluid(bench.bench).ok());
  EXPECT_EQ(bench.Bytes(work_file::kFluid), "");
  EXPECT_EQ(bench.study.fluid_name, "Νερό");
}

}  // namespace
}  // namespace kalvo

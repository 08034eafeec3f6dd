#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "study/fluid_library.h"
#include "study/load_study.h"
#include "study/recent_files.h"
#include "study/study_file_names.h"
#include "study/study_reset.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

TEST(LoadStudy, TakesAStudyThatIsItsMainFileAlone) {
  TestBench bench;
  auto rows = SampleRows(SystemKind::kClosed, "Κτίριο");
  rows[0].Auxi = 0;
  rows[1].Auxi = 2;
  rows[1].MeanTemp = 55.0F;
  PutMain(bench, "b.PCK", rows);
  FluidRow water = WaterRow(bench.workspace);
  water.density = 999.0F;
  ASSERT_TRUE(RowFile<FluidRow>(bench.outer_disk, "/library/Liquids.dat").Write(1, water).ok());

  ASSERT_TRUE(Load(bench, "b.PCK"));

  EXPECT_EQ(bench.Bytes(), EncodeRows<SectionRow>(rows));
  EXPECT_EQ(bench.Bytes(work_file::kEmitters), EncodeRows<SectionRow>(std::span(rows).subspan(1)));
  EXPECT_EQ(bench.Bytes(work_file::kFluid), EncodeRows<FluidRow>(std::array{water}));
  const Study& study = bench.study;
  EXPECT_EQ(study.study_title, "Κτίριο");
  EXPECT_EQ(study.plant_section, 2);
  EXPECT_EQ(study.MeanTemp, 55.0F) << "the header is the plant section's";
  EXPECT_EQ(study.PumpHead, 1.5F);
  EXPECT_TRUE(study.results_valid);
  EXPECT_EQ(study.CalculatedDiameters,
            std::vector<FixedText<15>>(3, FixedText<15>::FromUtf8("3/4")));
  EXPECT_EQ(study.EmitterCount, 2);
  EXPECT_EQ(study.SectionCount, 3);
  EXPECT_EQ(study.study_base_name, "b");
  EXPECT_EQ(study.study_short_name, "b.PCK");
  EXPECT_EQ(study.study_folder, kStudies);
  EXPECT_FALSE(study.unsaved_changes);
}

TEST(LoadStudy, NeedsTotalFlowAndHeadForValidResultsAndTheOutletsOfItsRows) {
  for (float SectionRow::*const missing : {&SectionRow::PAR, &SectionRow::DP}) {
    TestBench bench;
    auto rows = SampleRows(SystemKind::kClosed, "Κτίριο");
    rows[0].*missing = 0;
    rows[0].Outlets = 5;
    PutMain(bench, "b.PCK", rows);
    ASSERT_TRUE(Load(bench, "b.PCK"));
    EXPECT_FALSE(bench.study.results_valid);
    EXPECT_TRUE(bench.study.CalculatedDiameters.empty());
    EXPECT_EQ(bench.study.EmitterCount, 2);
    EXPECT_EQ(bench.study.EmitterTable.size(), 2U);
    EXPECT_TRUE(bench.study.unsaved_changes) << "other outlets than the rows have";
  }
}

TEST(LoadStudy, LeavesNothingOfTheStudyBefore) {
  TestBench bench;
  PutSampleStudy(bench.bench, "Παλιά");
  bench.study.recalculation_needed = true;
  bench.study.Density = 1260.0F;
  PutMain(bench, "b.PCK", SampleRows(SystemKind::kClosed, "Νέα"));
  ASSERT_TRUE(Load(bench, "b.PCK"));
  EXPECT_EQ(bench.study.critical_branch, "");
  EXPECT_EQ(bench.study.fluid_name, kWaterName);
  EXPECT_EQ(bench.study.Density, 0.0F);
  EXPECT_FALSE(bench.study.recalculation_needed);
  EXPECT_TRUE(bench.study.PipeStats.empty());
  EXPECT_FALSE(bench.workspace.Exists(work_file::kStatistics));
  EXPECT_FALSE(bench.workspace.Exists(work_file::kWinter));
}

TEST(LoadStudy, TakesTheCompanionsInWhateverCaseTheyAreWritten) {
  TestBench bench;
  SaveSample(bench, "KTIRIO.PCK", "Κτίριο");
  for (const std::string extension : {".STC", ".WNT", ".LQD"}) {
    ASSERT_TRUE(
        bench.outer_disk
            .Rename(kStudies / ("KTIRIO" + extension), kStudies / ("Ktirio" + LowerCase(extension)))
            .ok());
  }
  PutMain(bench, "KTIRIO.dpc", "\"1-3\"\r\n\"Simple\"\r\n");
  ASSERT_TRUE(Load(bench, "ktirio.pck"));
  EXPECT_EQ(bench.study.study_path, kStudies / "KTIRIO.PCK") << "the folder's own spelling";
  EXPECT_EQ(bench.study.critical_branch, "1-3");
  EXPECT_EQ(bench.study.PipeStats.size(), 2U);
  EXPECT_EQ(bench.study.fluid_name, "Κτίριο");
  EXPECT_EQ(bench.Bytes(work_file::kWinter), bench.Bytes());
}

TEST(LoadStudy, PrefersTheCompanionOfItsOwnSpelling) {
  TestBench bench;
  SaveSample(bench, "b.PCK", "μικρό");
  SaveSample(bench, "B.PCK", "μεγάλο");
  ASSERT_TRUE(bench.outer_disk.Rename(kStudies / "b.LQD", kStudies / "b.lqd").ok());
  ASSERT_TRUE(Load(bench, "b.PCK"));
  EXPECT_EQ(bench.study.fluid_name, "μικρό");
}

TEST(LoadStudy, TakesNoCompanionFromANameItCannotRead) {
  TestBench bench;
  const std::string name = "\xC1\xC2.PCK";
  const std::string other = "\xC3\xC4.LQD";
  PutMain(bench, name, SampleRows(SystemKind::kClosed, "Κτίριο"));
  PutMain(bench, other, std::string(72, 'x'));
  ASSERT_TRUE(Load(bench, name));
  EXPECT_EQ(bench.study.fluid_name, kWaterName);
}

TEST(LoadStudy, TakesEmptyCompanionsAsTheyAre) {
  TestBench bench;
  SaveSample(bench, "b.PCK", "Κτίριο");
  for (const char* name : {"b.DPC", "b.STC", "b.WNT", "b.LQD"}) {
    PutMain(bench, name, "");
  }
  ASSERT_TRUE(Load(bench, "b.PCK"));
  EXPECT_EQ(bench.Bytes(work_file::kFluid), "");
  EXPECT_EQ(bench.Bytes(work_file::kStatistics), "");
}

TEST(LoadStudy, TakesBothOrNeitherKindAsTheChosenOne) {
  for (const std::int16_t flag : {std::int16_t{0}, std::int16_t{-1}}) {
    TestBench bench(SystemKind::kOpen);
    auto rows = SampleRows(SystemKind::kOpen, "Κτίριο");
    rows[0].KLEIS = rows[0].ANOIK = flag;
    PutMain(bench, "b.PCA", rows);
    EXPECT_TRUE(Load(bench, "b.PCA"));
  }
}

TEST(LoadStudy, RecoversWhatStandsInTheWorkFilesWithEmittersOfDeletedSections) {
  for (const std::size_t left : {0U, 3U}) {
    TestBench bench;
    PutSampleStudy(bench.bench, "Ημιτελής");
    const std::string rows = bench.Bytes();
    const std::string fluid = bench.Bytes(work_file::kFluid);
    std::vector<SectionRow> emitters = bench.Rows(work_file::kEmitters);
    emitters.resize(left);
    ASSERT_TRUE(bench.workspace.Rows(work_file::kEmitters).WriteAll(emitters).ok());
    bench.study.recovery = true;
    EXPECT_TRUE(LoadStudy(bench.bench));
    EXPECT_TRUE(bench.study.unsaved_changes);
    EXPECT_TRUE(bench.study.recalculation_needed);
    EXPECT_TRUE(bench.study.came_by_recovery);
    EXPECT_EQ(bench.study.study_title, "Ημιτελής");
    EXPECT_EQ(bench.study.fluid_name, "Ημιτελής");
    EXPECT_EQ(bench.study.PipeStats.size(), 2U);
    EXPECT_EQ(bench.Bytes(), rows);
    EXPECT_EQ(bench.Bytes(work_file::kFluid), fluid);
    EXPECT_EQ(bench.Rows(work_file::kEmitters).size(), std::max<std::size_t>(left, 2));
    EXPECT_EQ(bench.study.emitters_unchecked, left != 0);
    EXPECT_FALSE(bench.workspace.Exists(work_file::kRecentFiles));
  }
  TestBench odd;
  PutSampleStudy(odd.bench, "Ημιτελής");
  ASSERT_TRUE(odd.workspace.Write(work_file::kEmitters, "odd").ok());
  odd.study.recovery = true;
  EXPECT_FALSE(LoadStudy(odd.bench));
  EXPECT_EQ(odd.Bytes(work_file::kEmitters), "odd");
}

TEST(LoadStudy, RefusesACompanionWithWhatIsNoNumber) {
  TestBench bench;
  SaveSample(bench, "b.PCK", "Κτίριο");
  std::vector<SectionRow> rows = SampleRows(SystemKind::kClosed, "Κτίριο");
  rows.back().WaterFlow = std::numeric_limits<float>::quiet_NaN();
  PutMain(bench, "b.WNT", EncodeRows<SectionRow>(rows));
  const Result<bool> loaded = Load(bench, "b.PCK");
  ASSERT_FALSE(loaded);
  EXPECT_NE(loaded.error().Line().find("b.WNT"), std::string::npos);
}

TEST(LoadStudy, LeavesTheCompanionsOfAnotherStudyAlone) {
  TestBench bench;
  SaveSample(bench, "FOO.PCK", "Άλλη");
  const std::string rows = EncodeRows<SectionRow>(SampleRows(SystemKind::kClosed, "Κτίριο"));
  PutMain(bench, "foo.PCK", rows);
  ASSERT_TRUE(Load(bench, "foo.PCK"));
  EXPECT_EQ(bench.study.fluid_name, kWaterName);
  ASSERT_TRUE(bench.outer_disk.Remove(kStudies / "FOO.PCK").ok());
  PutMain(bench, "FOO.pca", rows);
  ASSERT_TRUE(Load(bench, "foo.PCK"));
  EXPECT_EQ(bench.study.fluid_name, kWaterName);
}

TEST(StudyReset, DeletesEveryFileOfAStudyInWorkAndNoOther) {
  const std::vector<std::string> names = {
      "DATARES.TMP",       "DATARES.OLD", "DATARES.SMR",  "DATARES.@@@",  "DATARES.PRV",
      "RESULTS.TMP",       "SOMATA.TMP",  "SOMATA.@@@",   "TEMPODAT.TMP", "RESTBRA.TMP",
      "INTRO.TMP",         "ERRORS.TMP",  "SEQUENT.TMP",  "STATIST.TMP",  "WINTCIRC.TMP",
      "Spread.ss2",        "Intro.ss2",   "FIRSTONE.TMP", "FIRSTONE.TM_", "LIQUID.TMP",
      "SectionsFlows.txt", "Spread.@@@"};
  TestBench bench;
  for (const std::string& name : names) {
    ASSERT_TRUE(bench.workspace.Write(name, "x").ok());
  }
  for (const char* name : {"RecentFiles.txt", "Studies.std", "~vamo.wpf"}) {
    ASSERT_TRUE(bench.workspace.Write(name, "x").ok());
  }
  bench.workspace.DeleteWorkFiles();
  const FolderImage left = ImageOf(bench.work_disk, TestBench::kProgramFolder);
  EXPECT_EQ(left,
            (FolderImage{{"RecentFiles.txt", "x"}, {"Studies.std", "x"}, {"~vamo.wpf", "x"}}));
}

TEST(StudyReset, LeavesAnEmptyStudyOnWaterWithKindPipesAndUnsavedFlagAsTheyWere) {
  TestBench bench(SystemKind::kOpen);
  PutSampleStudy(bench.bench, "Κτίριο");
  bench.study.pipe_system_number = 2;
  bench.study.unsaved_changes = true;
  bench.study.recalculation_needed = true;
  bench.study.emitters_unchecked = true;
  bench.study.study_path = kStudies / "b.PCA";
  RebuildNameState(bench.bench);
  for (const bool has_library : {true, false}) {
    if (!has_library) {
      ASSERT_TRUE(bench.outer_disk.Remove(fs::path(bench.kLibraryFolder) / "Liquids.dat").ok());
    }
    ResetStudy(bench.bench);
    const auto water = bench.workspace.Rows<FluidRow>(work_file::kFluid).ReadAll();
    ASSERT_TRUE(water.ok());
    ASSERT_EQ(water->size(), 1U);
    EXPECT_EQ(water->front().name.Utf8(), "Νερό");
    EXPECT_EQ(water->front().viscosity, -10000.0F);
    EXPECT_EQ(water->front().density, 1000.0F);
  }
  const Study& study = bench.study;
  EXPECT_EQ(study.SectionCount + study.EmitterCount + study.CurrentRow + study.plant_section, 0);
  EXPECT_TRUE(study.SectionTable.empty() && study.EmitterTable.empty());
  EXPECT_EQ(study.critical_branch + study.study_title + study.study_base_name, "");
  EXPECT_EQ(study.study_path, "");
  EXPECT_FALSE(study.results_valid || study.recalculation_needed || study.emitters_unchecked);
  EXPECT_EQ(study.system_kind, SystemKind::kOpen);
  EXPECT_EQ(study.pipe_system_number, 2);
  EXPECT_TRUE(study.unsaved_changes);
}

TEST(LoadStudy, PutsTheFolderSpellingOnTheRecentListUnlessOpenedFromThere) {
  TestBench bench;
  PutMain(bench, "b.PCK", SampleRows(SystemKind::kClosed, "Κτίριο"));
  ASSERT_TRUE(Load(bench, "b"));
  EXPECT_TRUE(ReadRecentFiles(bench.workspace).empty());
  bench.study.study_path = R"(\studies\b.pck)";
  EXPECT_TRUE(LoadStudy(bench.bench));
  EXPECT_EQ(ReadRecentFiles(bench.workspace), std::vector<std::string>{"/studies/b.PCK"});
}

}  // namespace
}  // namespace kalvo

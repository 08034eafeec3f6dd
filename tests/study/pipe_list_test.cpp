#include "study/pipe_list.h"

#include <gtest/gtest.h>

#include "study/pipe_choice.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

const std::filesystem::path kLibrary = TestBench::kLibraryFolder;

std::vector<std::string> LinesOf(const Result<PipeList>& list) {
  std::vector<std::string> texts;
  for (const PipeListEntry& entry : list ? *list : PipeList{}) {
    texts.push_back(entry.Text());
  }
  return texts;
}

void Put(TestBench& bench, const std::string& name, std::size_t length) {
  EXPECT_TRUE(bench.outer_disk.Write(kLibrary / name, std::string(length, ' ')).ok());
}

TEST(PipeList, EntriesStandWithTheirNumberTitleAndBlanks) {
  TestBench bench;
  const auto list = BuildPipeList(bench.workspace, EmptyLibraries::kSkip);
  EXPECT_EQ(LinesOf(list),
            (std::vector<std::string>{" 0001. Χαλυβδοσωλήνες ", " 0002. Χαλκοσωλήνες "}));
  EXPECT_EQ(list->back().material, "COPPER");
  EXPECT_EQ(list->front().sizes, 10);
}

TEST(PipeList, OddLengthIsRefusedByNameAndLeftAlone) {
  TestBench bench;
  Put(bench, "0003.WPT", 147);
  const auto list = BuildPipeList(bench.workspace, EmptyLibraries::kDelete);
  ASSERT_FALSE(list.ok());
  EXPECT_EQ(list.error().file, kLibrary / "0003.WPT");
  EXPECT_TRUE(bench.outer_disk.Exists(kLibrary / "0003.WPT"));
  const Box box = UnsuitableLibraryBox(list.error());
  EXPECT_EQ(box.title, "! ΠΡΟΣΟΧΗ !");
  EXPECT_EQ(box.lines.front(), "Ακατάλληλες Βιβλιοθήκες Σωλήνων");
}

TEST(PipeList, EmptyFileTakesNoPlaceAndLaterOnesMoveUp) {
  for (const EmptyLibraries empty : {EmptyLibraries::kDelete, EmptyLibraries::kSkip}) {
    TestBench bench;
    Put(bench, "0001.WPT", 0);
    const auto list = BuildPipeList(bench.workspace, empty);
    EXPECT_EQ(LinesOf(list), std::vector<std::string>{" 0001. Χαλκοσωλήνες "});
    EXPECT_EQ(list->front().file_name, "0002.WPT");
    EXPECT_EQ(bench.outer_disk.Exists(kLibrary / "0001.WPT"), empty == EmptyLibraries::kSkip);
  }
}

TEST(PipeList, FilesAreFoundInNameOrderWhateverTheirCase) {
  TestBench bench;
  ASSERT_TRUE(bench.outer_disk.Rename(kLibrary / "0001.WPT", kLibrary / "0003.wpt").ok());
  Put(bench, "0004.WPT.old", 10);
  const auto list = BuildPipeList(bench.workspace, EmptyLibraries::kSkip);
  EXPECT_EQ(LinesOf(list),
            (std::vector<std::string>{" 0001. Χαλκοσωλήνες ", " 0002. Χαλυβδοσωλήνες "}));
  EXPECT_EQ(ReadPipeSystem(bench.workspace, 3)->size(), 10U);
}

TEST(PipeList, ReservedValuesOfAPipeArePreserved) {
  TestBench bench;
  PipeRow pipe;
  pipe.reserved1 = 1.5F;
  pipe.reserved2 = -2.5F;
  pipe.reserved3 = 3.5F;
  PutPipes(bench, PipeFileName(12), {&pipe, 1});
  const auto read = ReadPipeSystem(bench.workspace, 12);
  EXPECT_EQ(EncodeRows<PipeRow>(*read), EncodeRows<PipeRow>({&pipe, 1}));
}

TEST(PipeList, FileNamesAndMaterialLines) {
  EXPECT_EQ(PipeFileName(1), "0001.WPT");
  EXPECT_EQ(PipeFileName(12345), "12345.WPT");
  EXPECT_EQ(MaterialLine("STEEL"), "Υλικό Σωλήνων : ΧΑΛΥΒΑΣ");
  EXPECT_EQ(MaterialLine(" COPPER "), "Υλικό Σωλήνων : ΧΑΛΚΟΣ");
  EXPECT_EQ(MaterialLine(" PVC "), "Υλικό Σωλήνων : PVC");
}

class PipeChoice : public testing::Test {
 protected:
  PipeChoice() {
    std::vector<SectionRow> rows = Network({"ANT/1 5m", "1/ANT 4m soma 300l/h 500mm"});
    for (SectionRow& row : rows) {
      row.PAR = 0.3F;
      row.DP = 700;
    }
    bench.PutRows(rows);
  }
  TestBench bench;
};

TEST_F(PipeChoice, TheSameSystemAgainWritesNothingAndKeepsTheResults) {
  const std::string before = bench.Bytes();
  ASSERT_TRUE(SelectPipeSystem(bench.bench, 0).ok());
  EXPECT_EQ(bench.Bytes(), before);
  EXPECT_TRUE(bench.study.results_valid);
  EXPECT_FALSE(bench.study.unsaved_changes);
}

TEST_F(PipeChoice, AnotherSystemIsWrittenIntoEveryRowAndDropsTheResults) {
  std::vector<SectionRow> expected = bench.Rows();
  for (SectionRow& row : expected) {
    row.FileNumber = 2;
  }
  ASSERT_TRUE(SelectPipeSystem(bench.bench, 1).ok());
  EXPECT_EQ(bench.Bytes(), EncodeRows<SectionRow>(expected));
  EXPECT_EQ(bench.study.pipe_system_number, 2);
  EXPECT_EQ(bench.study.pipe_material, "COPPER");
  EXPECT_FALSE(bench.study.results_valid);
  EXPECT_TRUE(bench.study.unsaved_changes);
}

TEST_F(PipeChoice, ASystemWithoutFileIsRefusedAndNothingChanges) {
  const std::string before = bench.Bytes();
  EXPECT_FALSE(SelectPipeSystem(bench.bench, 6).ok());
  EXPECT_EQ(bench.Bytes(), before);
  EXPECT_EQ(bench.study.pipe_system_number, 1);
  EXPECT_EQ(bench.study.pipe_material, "STEEL");
  EXPECT_TRUE(bench.study.results_valid);
}

TEST_F(PipeChoice, WithoutRowsNoWorkFileAppears) {
  bench.workspace.Delete(work_file::kRows);
  ASSERT_TRUE(SelectPipeSystem(bench.bench, 1).ok());
  EXPECT_FALSE(bench.workspace.Exists(work_file::kRows));
}

}  // namespace
}  // namespace kalvo

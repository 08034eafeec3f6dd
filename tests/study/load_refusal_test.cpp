#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "study/load_study.h"
#include "tests/support/failing_disk.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

const fs::path kProgram = TestBench::kProgramFolder;

// The study is refused with an error that says `what`; the open one and all files stay as they
// were.
void ExpectRefused(TestBench& bench, const std::string& name, const std::string& what) {
  const FolderImage work = ImageOf(bench.work_disk, kProgram);
  const FolderImage outer = ImageOf(bench.outer_disk, kStudies);
  const fs::path open_study = bench.study.last_study_path;
  const std::string title = bench.study.study_title;
  const Result<bool> loaded = Load(bench, name);
  ASSERT_FALSE(loaded);
  EXPECT_NE(loaded.error().Line().find(what), std::string::npos) << loaded.error().Line();
  EXPECT_TRUE(bench.prompter.boxes().empty());
  EXPECT_EQ(ImageOf(bench.work_disk, kProgram), work);
  EXPECT_EQ(ImageOf(bench.outer_disk, kStudies), outer);
  EXPECT_EQ(bench.study.study_path, open_study);
  EXPECT_EQ(bench.study.study_title, title);
}

TEST(LoadRefusal, RefusesCompanionsOfOddLengthByName) {
  for (const std::string name : {"b.STC", "b.WNT", "b.LQD"}) {
    TestBench bench;
    SaveSample(bench, "a.PCK", "Ανοικτή");
    SaveSample(bench, "b.PCK", "Κτίριο");
    ASSERT_TRUE(Load(bench, "a.PCK"));
    const auto bytes = bench.outer_disk.Read(kStudies / name);
    ASSERT_TRUE(bytes.ok());
    PutMain(bench, name, *bytes + "x");
    ExpectRefused(bench, "b.PCK", (kStudies / name).string());
  }
}

TEST(LoadRefusal, RefusesAStudyCutWithinARecord) {
  TestBench bench;
  SaveSample(bench, "a.PCK", "Ανοικτή");
  ASSERT_TRUE(Load(bench, "a.PCK"));
  const std::string whole = EncodeRows<SectionRow>(SampleRows(SystemKind::kClosed, "Κτίριο"));
  for (std::size_t length = 0; length < whole.size(); ++length) {
    if (length == 0 || length % 355 != 0) {
      PutMain(bench, "b.PCK", whole.substr(0, length));
      ExpectRefused(bench, "b.PCK", (kStudies / "b.PCK").string());
    }
  }
  PutMain(bench, "b.PCK", whole.substr(0, 710));
  ASSERT_TRUE(Load(bench, "b.PCK"));
  EXPECT_EQ(bench.study.SectionCount, 2);
}

TEST(LoadRefusal, RefusesWhatIsNoNumberInAnyField) {
  TestBench bench;
  const auto rows = SampleRows(SystemKind::kClosed, "Κτίριο");
  int tried = 0;
  for (const float bad :
       {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
        -std::numeric_limits<float>::infinity()}) {
    ForEachField(rows[0], [&](std::string_view field, const auto& first) {
      if constexpr (std::is_same_v<std::decay_t<decltype(first)>, float>) {
        auto changed = rows;
        ForEachField(changed[2], [&](std::string_view name, auto& value) {
          if constexpr (std::is_same_v<std::decay_t<decltype(value)>, float>) {
            value = name == field ? bad : value;
          }
        });
        PutMain(bench, "b.PCK", changed);
        ExpectRefused(bench, "b.PCK", "εγγραφή 3, πεδίο " + std::string(field));
        ++tried;
      }
    });
  }
  EXPECT_EQ(tried, 3 * 21);
}

TEST(LoadRefusal, SurvivesRowsOfNoise) {
  std::mt19937 random(20);
  for (int round = 0; round < 300; ++round) {
    TestBench bench;
    auto bytes = EncodeRows<SectionRow>(SampleRows(SystemKind::kClosed, "Κτίριο"));
    for (int i = 0; i < (round % 3 == 0 ? 600 : 4); ++i) {
      bytes[random() % bytes.size()] = static_cast<char>(random());
    }
    PutMain(bench, "b.PCK", bytes);
    if (Load(bench, "b.PCK")) {
      EXPECT_EQ(bench.Bytes(), bytes);
      EXPECT_EQ(bench.study.SectionTable.size(), 3U);
    } else {
      EXPECT_FALSE(bench.workspace.Exists(work_file::kRows));
    }
    EXPECT_EQ(*bench.outer_disk.Read(kStudies / "b.PCK"), bytes);
  }
}

TEST(LoadRefusal, RefusesRowsOutOfPlaceTheOtherKindAndWhatIsNotThere) {
  for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
    const bool closed = kind == SystemKind::kClosed;
    const std::string name = closed ? "b.PCK" : "b.PCA";
    TestBench bench(kind);
    ExpectRefused(bench, name, (kStudies / name).string());
    PutMain(bench, name, SampleRows(closed ? SystemKind::kOpen : SystemKind::kClosed, "Άλλο"));
    ExpectRefused(bench, name, "άλλου είδους");
    std::vector<SectionRow> rows = SampleRows(kind, "Κτίριο");
    for (const std::int16_t number : std::initializer_list<std::int16_t>{-1, 0, 3, INT16_MAX}) {
      for (SectionRow& row : rows) {
        row.FileNumber = number;
      }
      PutMain(bench, name, rows);
      ExpectRefused(bench, name, "Νο " + std::to_string(number));
    }
    std::swap(rows[0], rows[1]);
    PutMain(bench, name, rows);
    ExpectRefused(bench, name, "Η εγγραφή 1 φέρει αριθμό Τμήματος 2");
    PutMain(bench, name, SampleRows(kind, "Κτίριο"));
    const fs::path library = fs::path(TestBench::kLibraryFolder) / "0001.WPT";
    ASSERT_TRUE(bench.outer_disk.Remove(library).ok());
    ExpectRefused(bench, name, library.string());
  }
}

TEST(LoadRefusal, ResetsWhenTheWorkFolderFailsAfterTheOldStudyIsGone) {
  // `Outlets` differs from the rows, which marks a study as changed, but not one that is gone.
  auto rows = SampleRows(SystemKind::kClosed, "Νέα");
  rows[0].Outlets = 5;
  int operations = 1;
  for (int bad = 1; bad <= operations; ++bad) {
    TestBench bench;
    SaveSample(bench, "b.PCK", "Νέα");
    PutMain(bench, "b.PCK", rows);
    PutSampleStudy(bench.bench, "Παλιά");
    FailingDisk disk(bench.work_disk);
    disk.FailAtOperation(bad, FailingDisk::Lasting::kOnce);
    Workspace workspace(disk, kProgram, bench.outer_disk, TestBench::kLibraryFolder, bench.clock);
    Workbench failing(bench.study, workspace, bench.pipes, bench.prompter);
    bench.study.study_path = kStudies / "b.PCK";
    const bool loaded = LoadStudy(failing).ok();
    operations = disk.operations();
    const FolderImage work = ImageOf(bench.work_disk, kProgram);
    if (loaded) {
      EXPECT_EQ(work.at(work_file::kRows), *bench.outer_disk.Read(kStudies / "b.PCK"));
      EXPECT_EQ(work.at(work_file::kStatistics), *bench.outer_disk.Read(kStudies / "b.STC"));
      EXPECT_EQ(work.at(work_file::kWinter), *bench.outer_disk.Read(kStudies / "b.WNT"));
      EXPECT_EQ(work.at(work_file::kFluid), *bench.outer_disk.Read(kStudies / "b.LQD"));
    } else {
      EXPECT_FALSE(work.contains(work_file::kRows)) << "operation " << bad;
      EXPECT_EQ(bench.study.study_title, "");
      EXPECT_EQ(bench.study.study_path, "");
      EXPECT_FALSE(bench.study.unsaved_changes);
    }
  }
}

TEST(LoadRefusal, DoesNothingOnEscapeOrWithUnsavedChanges) {
  TestBench bench;
  SaveSample(bench, "b.PCK", "Νέα");
  PutSampleStudy(bench.bench, "Παλιά");
  const FolderImage work = ImageOf(bench.work_disk, kProgram);
  bench.study.last_study_path = kStudies / "a.PCK";
  bench.study.study_path = kEscapePath;
  EXPECT_FALSE(LoadStudy(bench.bench).value());
  EXPECT_EQ(bench.study.study_path, kStudies / "a.PCK");
  bench.study.unsaved_changes = true;
  EXPECT_FALSE(Load(bench, "b.PCK").value());
  EXPECT_EQ(ImageOf(bench.work_disk, kProgram), work);
}

TEST(LoadRefusal, LeavesTheWorkFilesOfARecoveryThatFails) {
  for (const char* odd : {work_file::kRows, work_file::kStatistics, work_file::kFluid}) {
    TestBench bench;
    PutSampleStudy(bench.bench, "Ημιτελής");
    ASSERT_TRUE(bench.workspace.Write(odd, bench.Bytes(odd) + "x").ok());
    const FolderImage work = ImageOf(bench.work_disk, kProgram);
    bench.study.recovery = true;
    const Result<bool> loaded = LoadStudy(bench.bench);
    ASSERT_FALSE(loaded);
    EXPECT_NE(loaded.error().Line().find((kProgram / odd).string()), std::string::npos);
    EXPECT_EQ(ImageOf(bench.work_disk, kProgram), work);
  }
}

}  // namespace
}  // namespace kalvo

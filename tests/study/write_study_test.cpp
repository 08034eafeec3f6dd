#include "study/write_study.h"

#include <gtest/gtest.h>

#include <array>

#include "study/load_study.h"
#include "tests/support/failing_disk.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

FolderImage Studies(const TestBench& bench) { return ImageOf(bench.outer_disk, kStudies); }

void Save(TestBench& bench, const std::string& name) {
  bench.study.study_path = kStudies / name;
  const Outcome saved = WriteStudy(bench.bench);
  ASSERT_TRUE(saved.ok()) << saved.error().Line();
}

std::vector<std::string> NamesOf(const FolderImage& image) {
  std::vector<std::string> names;
  for (const auto& [name, bytes] : image) {
    names.push_back(name);
  }
  return names;
}

TEST(WriteStudy, SavesTheFamilyOfEachKind) {
  TestBench closed;
  PutSampleStudy(closed.bench, "Κτίριο");
  Save(closed, "Κτίριο Α.1");
  const std::string base = "Κτίριο Α.1";
  EXPECT_EQ(NamesOf(Studies(closed)),
            (std::vector<std::string>{base + ".LQD", base + ".PCK", base + ".STC", base + ".WNT"}));
  EXPECT_EQ(closed.study.study_base_name, base);
  EXPECT_FALSE(closed.study.unsaved_changes);

  TestBench open(SystemKind::kOpen);
  PutSampleStudy(open.bench, "Κτίριο");
  ASSERT_TRUE(open.workspace.Rows(work_file::kWinter).WriteAll(open.Rows()).ok());
  Save(open, "b");
  EXPECT_EQ(NamesOf(Studies(open)), (std::vector<std::string>{"b.LQD", "b.PCA", "b.STO"}));
}

TEST(WriteStudy, ComesBackByteForByte) {
  for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
    TestBench bench(kind);
    const std::string end = kind == SystemKind::kClosed ? ".PCK" : ".PCA";
    PutSampleStudy(bench.bench, "Κτίριο");
    Save(bench, "b" + end);
    const FolderImage saved = Studies(bench);
    TestBench next(kind);
    for (const auto& [name, bytes] : saved) {
      PutMain(next, name, bytes);
    }
    ASSERT_TRUE(Load(next, "b" + end));
    next.study.critical_branch = "1-3";
    next.study.unsaved_changes = true;
    Save(next, "b" + end);
    EXPECT_EQ(Studies(next), saved);
    Save(next, "c" + end);
    EXPECT_EQ(Studies(next).size(), 2 * saved.size());
    for (const auto& [name, bytes] : saved) {
      EXPECT_EQ(Studies(next).at("c" + name.substr(1)), bytes);
    }
  }
}

TEST(WriteStudy, KeepsTheCaseOfItsNamesAndLeavesOthersInAnotherCaseAlone) {
  TestBench bench;
  PutSampleStudy(bench.bench, "Κτίριο");
  for (const char* name : {"b.pck", "b.stc", "b.Wnt", "B.LQD", "B.PCK"}) {
    PutMain(bench, name, "old");
  }
  Save(bench, "b.PCK");
  EXPECT_EQ(NamesOf(Studies(bench)),
            (std::vector<std::string>{"B.LQD", "B.PCK", "b.LQD", "b.Wnt", "b.pck", "b.stc"}));
  EXPECT_EQ(Studies(bench).at("b.pck"), bench.Bytes());
  EXPECT_EQ(Studies(bench).at("b.LQD"), bench.Bytes(work_file::kFluid));
  EXPECT_EQ(Studies(bench).at("B.PCK") + Studies(bench).at("B.LQD"), "oldold");
  EXPECT_EQ(bench.study.study_path, kStudies / "b.pck");
}

TEST(WriteStudy, LeavesSideFilesThatHaveNoSuccessor) {
  TestBench bench;
  PutSampleStudy(bench.bench, "Κτίριο");
  bench.study.critical_branch.clear();
  bench.workspace.Delete(work_file::kWinter);
  PutMain(bench, "b.WNT", "winter of an older save");
  PutMain(bench, "b.STC", "statistics of an older save");
  Save(bench, "b.PCK");
  EXPECT_EQ(Studies(bench).at("b.WNT"), "winter of an older save");
  EXPECT_EQ(Studies(bench).at("b.STC"), "statistics of an older save")
      << "statistics go with a critical branch only";
}

TEST(WriteStudy, WritesASequenceOnlyWhereOneStands) {
  TestBench bench;
  PutSampleStudy(bench.bench, "Κτίριο");
  ASSERT_TRUE(bench.workspace.Write(work_file::kSequence, "").ok());
  Save(bench, "b.PCK");
  EXPECT_EQ(Studies(bench).at("b.DPC"), "\"1-3\"\n\"Simple\"\n");
}

TEST(WriteStudy, RewritesTheMaterialOfEveryRow) {
  TestBench bench;
  PutSampleStudy(bench.bench, "Κτίριο");
  auto rows = bench.Rows();
  rows[0].FileNumber = 2;
  rows[2].Material = FixedText<78>::FromUtf8("?");
  ASSERT_TRUE(bench.workspace.Rows().WriteAll(rows).ok());
  Save(bench, "b.PCK");
  for (const SectionRow& row : bench.Rows()) {
    EXPECT_EQ(row.Material.Utf8(), "COPPER");
    EXPECT_EQ(row.NomiDiam.Utf8(), "3/4");
  }
  EXPECT_EQ(bench.study.pipe_system_number, 2);
}

TEST(WriteStudy, ClearsResultsThatAreStaleOrNotValid) {
  for (const bool stale : {true, false}) {
    TestBench bench;
    PutSampleStudy(bench.bench, "Κτίριο");
    const auto before = bench.Rows();
    bench.study.recalculation_needed = stale;
    bench.study.results_valid = stale;
    bench.study.MeanTemp = 50.0F;
    bench.study.MeanVel = 0.7F;
    Save(bench, "b.PCK");
    const auto after = DecodeRows<SectionRow>(Studies(bench).at("b.PCK"));
    ASSERT_EQ(after.size(), 3U);
    for (std::size_t i = 0; i < after.size(); ++i) {
      SectionRow wanted = before[i];
      wanted.MeanTemp = 50.0F;
      wanted.MeanVel = 0.7F;
      wanted.PAR = wanted.DP = wanted.AvaiPres = 0.0F;
      wanted.NomiDiam = {};
      EXPECT_EQ(EncodeRows<SectionRow>(std::array{after[i]}),
                EncodeRows<SectionRow>(std::array{wanted}));
    }
    ASSERT_TRUE(Load(bench, "b.PCK"));
    EXPECT_FALSE(bench.study.results_valid);
  }
}

TEST(WriteStudy, SavesNothingWithoutRowsOrOnEscape) {
  TestBench bench;
  PutMain(bench, "b.PCK", "old");
  bench.study.study_path = kStudies / "b.PCK";
  EXPECT_FALSE(WriteStudy(bench.bench).ok());
  EXPECT_EQ(bench.prompter.codes(), std::vector<int>{139});
  PutSampleStudy(bench.bench, "Κτίριο");
  bench.study.last_study_path = kStudies / "b.PCK";
  bench.study.study_path = kEscapePath;
  EXPECT_TRUE(WriteStudy(bench.bench).ok());
  EXPECT_EQ(bench.study.study_path, kStudies / "b.PCK");
  EXPECT_EQ(Studies(bench), (FolderImage{{"b.PCK", "old"}}));
}

TEST(WriteStudy, RefusesAPathWithoutAName) {
  for (const char* path : {"", "/studies/", ".PCK"}) {
    TestBench bench;
    PutSampleStudy(bench.bench, "Κτίριο");
    bench.study.study_path = path;
    EXPECT_EQ(WriteStudy(bench.bench).error().reason, "Λείπει το όνομα του Αρχείου της Μελέτης");
    bench.study = {};
    bench.study.study_path = path;
    EXPECT_FALSE(LoadStudy(bench.bench));
    EXPECT_FALSE(bench.workspace.Exists(work_file::kRecentFiles));
    EXPECT_TRUE(Studies(bench).empty());
  }
}

TEST(WriteStudy, RefusesAWorkFileThatALoadWouldRefuse) {
  for (const char* odd : {work_file::kRows, work_file::kStatistics, work_file::kFluid}) {
    TestBench bench;
    PutSampleStudy(bench.bench, "Κτίριο");
    ASSERT_TRUE(bench.workspace.Write(odd, bench.Bytes(odd) + "x").ok());
    bench.study.study_path = kStudies / "b.PCK";
    const Outcome saved = WriteStudy(bench.bench);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.error().file.filename(), odd);
    EXPECT_TRUE(Studies(bench).empty());
    EXPECT_TRUE(bench.study.unsaved_changes);
  }
}

// A study that is saved over an older save of the same name, on a disk that can fail.
class FailingSave : public ::testing::Test {
 protected:
  FailingSave() : disk_(bench_.outer_disk) {
    SaveSample(bench_, "b.PCK", "Παλιά");
    old_ = Studies(bench_);
    PutSampleStudy(bench_.bench, "Νέα");
    TestBench other;
    PutSampleStudy(other.bench, "Νέα");
    Save(other, "b.PCK");
    new_ = Studies(other);
  }

  Outcome TrySave() {
    Workspace workspace(bench_.work_disk, TestBench::kProgramFolder, disk_,
                        TestBench::kLibraryFolder, bench_.clock);
    Workbench bench(bench_.study, workspace, bench_.pipes, bench_.prompter);
    bench_.study.study_path = kStudies / "b.PCK";
    return WriteStudy(bench);
  }

  // Back to the older save, with nothing left of what was tried.
  void PutOldBack() {
    for (const auto& [name, bytes] : Studies(bench_)) {
      ASSERT_TRUE(bench_.outer_disk.Remove(kStudies / name).ok());
    }
    for (const auto& [name, bytes] : old_) {
      PutMain(bench_, name, bytes);
    }
    disk_.Mend();
  }

  TestBench bench_;
  FailingDisk disk_;
  FolderImage old_;
  FolderImage new_;
};

TEST_F(FailingSave, ThatFindsTheDiskFullLeavesEveryOldFileAndSucceedsWithRoom) {
  ASSERT_TRUE(TrySave().ok());
  ASSERT_EQ(Studies(bench_), new_);
  const std::size_t needed = disk_.written();
  // Within each file: no byte, one, half, all but one; every byte of the journal.
  std::vector<std::size_t> rooms;
  std::size_t start = 0;
  for (const char* name : {"b.STC", "b.WNT", "b.LQD", "b.PCK"}) {
    const std::size_t size = new_.at(name).size();
    rooms.insert(rooms.end(), {start, start + 1, start + size / 2, start + size - 1});
    start += size;
  }
  for (; start < needed; ++start) {
    rooms.push_back(start);
  }
  for (const std::size_t room : rooms) {
    PutOldBack();
    disk_.FailAfterBytes(room);
    const Outcome saved = TrySave();
    ASSERT_FALSE(saved.ok()) << room << " bytes";
    EXPECT_EQ(saved.error().reason, "Ο δίσκος είναι γεμάτος");
    EXPECT_EQ(saved.error().file.parent_path(), kStudies);
    EXPECT_TRUE(bench_.study.unsaved_changes);
    ASSERT_EQ(Studies(bench_), old_) << room << " bytes";
    disk_.Mend();
    ASSERT_TRUE(TrySave().ok());
    ASSERT_EQ(Studies(bench_), new_) << room << " bytes";
  }
}

TEST_F(FailingSave, AtAnyOperationShowsTheOldStudyOrTheNewAndSucceedsOnRepetition) {
  disk_.FailAtOperation(0, FailingDisk::Lasting::kOnce);
  ASSERT_TRUE(TrySave().ok());
  const int operations = disk_.operations();
  ASSERT_GT(operations, 12);
  for (const auto lasting : {FailingDisk::Lasting::kOnce, FailingDisk::Lasting::kFromThenOn}) {
    for (int bad = 1; bad <= operations; ++bad) {
      SCOPED_TRACE(bad);
      PutOldBack();
      disk_.FailAtOperation(bad, lasting);
      EXPECT_FALSE(TrySave().ok());
      TestBench reader;
      for (const auto& [name, bytes] : Studies(bench_)) {
        PutMain(reader, name, bytes);
      }
      ASSERT_TRUE(Load(reader, "b.PCK"));
      FolderImage seen = Studies(reader);
      std::erase_if(seen, [](const auto& file) { return file.first.ends_with(kBesideEnd); });
      EXPECT_TRUE(seen == old_ || seen == new_);
      if (seen == old_ && lasting == FailingDisk::Lasting::kOnce) {
        EXPECT_EQ(Studies(bench_), old_) << "nothing of the attempt is left";
      }
      EXPECT_EQ(reader.study.fluid_name, reader.study.study_title);
      disk_.Mend();
      ASSERT_TRUE(TrySave().ok());
      ASSERT_EQ(Studies(bench_), new_);
    }
  }
}

}  // namespace
}  // namespace kalvo

#include "engine/emitter_entry.h"

#include <gtest/gtest.h>

#include "engine/calculation_command.h"
#include "study/load_study.h"
#include "tests/support/failing_disk.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

using EmitterLines = std::vector<EmitterValues>;

const std::vector<std::string_view> kTwoLoops = {"ANT/1 10m", "1/2 5m soma 300 l/h 500mm",
                                                 "1/3 5m soma 200 l/h 400mm", "2/ANT 6m", "3/2 2m"};

EmitterLines EmitterList(const TestBench& bench, std::string_view name = work_file::kEmitters) {
  EmitterLines values;
  for (const SectionRow& record : bench.Rows(name)) {
    values.push_back({record.RecordNumber, record.WaterFlow, record.SomaDrop});
  }
  return values;
}

std::vector<float> RowFlows(const TestBench& bench) { return bench.Column(&SectionRow::WaterFlow); }

TEST(EmitterEntry, PutsANewListIntoTheRowsAtItsEnd) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 10m", "1/2 5m", "2/ANT 6m"});
  ASSERT_TRUE(bench.workspace.Write(work_file::kEmittersInWork, "left over").ok());
  EmitterEntry entry(bench.bench);
  EXPECT_FALSE(bench.workspace.Exists(work_file::kEmittersInWork)) << "begun afresh";
  entry.Store(1, {2, 300.5F, 500});
  const EmitterLines stored = {{2, 300.5F, 500}};
  EXPECT_EQ(EmitterList(bench), stored);
  EXPECT_EQ(EmitterList(bench, work_file::kEmittersInWork), stored);
  EXPECT_EQ(bench.Rows(work_file::kEmitters).at(0).Name, bench.Row(2).Name);
  EXPECT_EQ(RowFlows(bench), (std::vector<float>{0, 0, 0})) << "the rows follow at the end";
  bench.study.emitters_unchecked = bench.study.NameErrors = bench.study.results_valid = true;
  entry.End();
  EXPECT_EQ(RowFlows(bench), (std::vector<float>{0, 300.5F, 0}));
  EXPECT_EQ(bench.Row(2).SomaDrop, 500.0F);
  for (const SectionRow& row : bench.Rows()) {
    EXPECT_EQ(row.TOT, 3);
    EXPECT_EQ(row.Outlets, 1);
    EXPECT_EQ(row.KLEIS, 1);
    EXPECT_EQ(row.ANOIK, 0);
  }
  EXPECT_FALSE(bench.workspace.Exists(work_file::kEmittersInWork));
  EXPECT_EQ(bench.study.TotalFlowM3h, 0.3005F);
  EXPECT_EQ(bench.study.EmitterCount, 1);
  EXPECT_TRUE(bench.study.unsaved_changes);
  EXPECT_FALSE(bench.study.results_valid || bench.study.SingleSection);
  EXPECT_FALSE(bench.study.emitters_unchecked || bench.study.NameErrors);
}

TEST(EmitterEntry, KeepsTheOrderOfEntryAndWhatWasNotVisited) {
  TestBench bench;
  bench.PutNetwork(kTwoLoops);
  EmitterEntry entry(bench.bench);
  entry.Remove(1);
  entry.Append({{5, 70, 80}, {4, 10, 20}});
  entry.End();
  EXPECT_EQ(EmitterList(bench), (EmitterLines{{3, 200, 400}, {5, 70, 80}, {4, 10, 20}}));
  EXPECT_EQ(RowFlows(bench), (std::vector<float>{0, 0, 200, 10, 70}));
  ASSERT_EQ(bench.study.EmitterTable.size(), 3U);
  EXPECT_EQ(bench.study.EmitterTable[1].section, 4) << "the table is in the order of the rows";
}

TEST(EmitterEntry, ThatEndsAsItBeganWritesNothing) {
  TestBench bench;
  bench.PutNetwork(kTwoLoops);
  ASSERT_EQ(Calculate(bench.bench, Method::kFlowOnly), CommandEnd::kCalculated);
  ASSERT_NE(bench.Row(1).WaterFlow, 0.0F) << "a sum";
  bench.study.results_valid = true;
  bench.study.unsaved_changes = false;
  const FolderImage before = ImageOf(bench.work_disk, TestBench::kProgramFolder);
  {
    EmitterEntry entry(bench.bench);
    entry.Store(1, entry.At(1));
    entry.End();
    EXPECT_EQ(ImageOf(bench.work_disk, TestBench::kProgramFolder), before);
    entry.Store(1, {2, 999, 500});
    entry.Store(1, {2, 300, 500});
    entry.End();
  }
  EXPECT_EQ(bench.Bytes(), before.at(work_file::kRows));
  EXPECT_TRUE(bench.study.results_valid);
  EXPECT_FALSE(bench.study.unsaved_changes);
}

TEST(EmitterEntry, BrokenOffItLeavesTheRowsAndIsUnchecked) {
  TestBench bench;
  bench.PutNetwork(kTwoLoops);
  bench.study.results_valid = true;
  const std::string rows = bench.Bytes();
  EmitterEntry entry(bench.bench);
  entry.LeaveUnchecked();
  EXPECT_TRUE(bench.study.emitters_unchecked && bench.study.results_valid);
  entry.Store(3, {5, 70, 80});
  entry.LeaveUnchecked();
  EXPECT_EQ(bench.Bytes(), rows);
  EXPECT_EQ(EmitterList(bench).size(), 3U);
  EXPECT_TRUE(bench.study.unsaved_changes);
  EXPECT_FALSE(bench.study.results_valid);
  bench.study.results_valid = true;  // whatever has been set since
  EmitterEntry next(bench.bench);
  next.End();
  EXPECT_EQ(bench.Row(5).SomaDrop, 80.0F) << "the rows did not know the list it began with";
  EXPECT_FALSE(bench.study.results_valid || bench.study.emitters_unchecked);
}

// An emitter in a section that others follow: its row has a sum.
TEST(EmitterEntry, BrokenOffWithoutAChangeItsNextEndVoidsNothing) {
  TestBench bench;
  bench.PutNetwork(
      {"ANT/1 10m", "1/2 5m soma 300 l/h 500mm", "2/3 5m soma 200 l/h 400mm", "3/ANT 6m"});
  ASSERT_EQ(Calculate(bench.bench, Method::kFlowOnly), CommandEnd::kCalculated);
  ASSERT_EQ(bench.Row(2).WaterFlow, 500.0F);
  bench.study.results_valid = true;
  bench.study.unsaved_changes = false;
  const std::string rows = bench.Bytes();
  EmitterEntry(bench.bench).LeaveUnchecked();
  EmitterEntry(bench.bench).End();
  EXPECT_EQ(bench.Bytes(), rows);
  EXPECT_TRUE(bench.study.results_valid);
  EXPECT_FALSE(bench.study.unsaved_changes || bench.study.emitters_unchecked);
  // As after a kill: the file knows another flow than the rows.
  auto records = bench.Rows(work_file::kEmitters);
  records[1].WaterFlow = 150;
  ASSERT_TRUE(bench.workspace.Rows(work_file::kEmitters).WriteAll(records).ok());
  bench.study.emitters_unchecked = true;
  EmitterEntry(bench.bench).End();
  EXPECT_EQ(bench.Row(3).WaterFlow, 150.0F);
  EXPECT_FALSE(bench.study.results_valid);
}

TEST(EmitterEntry, KnowsWhichEmittersHaveLostTheirSection) {
  TestBench bench;
  bench.PutNetwork(kTwoLoops);
  auto records = bench.Rows(work_file::kEmitters);
  records.resize(4, records[0]);
  records[0].RecordNumber = 0;
  records[1].Name = MakeName("7", "8");
  records[2].RecordNumber = 9;
  records[3].RecordNumber = 3;
  ASSERT_TRUE(bench.workspace.Rows(work_file::kEmitters).WriteAll(records).ok());
  EmitterEntry entry(bench.bench);
  EXPECT_EQ(entry.FirstWithoutSection(), 1);
  EXPECT_EQ(entry.emitters()[0].Name.Trimmed(), "1/2") << "it keeps its name";
  EXPECT_EQ(entry.emitters()[1].Name.Trimmed(), "1/3") << "the row's";
  EXPECT_EQ(entry.At(3).section, 0);
  EXPECT_FALSE(entry.HasOwnSection(4)) << "emitter 2 has it";
  EXPECT_TRUE(entry.HasSection(3, 2));
  EXPECT_FALSE(entry.HasSection(5));
  entry.Remove(4);
  entry.Remove(3);
  entry.Store(1, {2, 300, 500});
  EXPECT_EQ(entry.FirstWithoutSection(), 0);
}

TEST(EmitterEntry, TakesTheEmittersOfTheRowsWhereTheFileIsMissing) {
  TestBench bench;
  bench.PutNetwork(kTwoLoops);
  bench.workspace.Delete(work_file::kEmitters);
  EmitterEntry entry(bench.bench);
  EXPECT_EQ(entry.count(), 2);
  entry.End();
  EXPECT_EQ(EmitterList(bench), (EmitterLines{{2, 300, 500}, {3, 200, 400}}));
  ASSERT_TRUE(bench.workspace.Write(work_file::kEmitters, "odd").ok());
  EXPECT_THROW(EmitterEntry{bench.bench}, Fault);
  EXPECT_EQ(bench.Bytes(work_file::kEmitters), "odd");
}

TEST(EmitterEntry, ADiskThatFailsLeavesListOrRowsWhole) {
  for (int operation = 1; operation <= 12; ++operation) {
    TestBench bench;
    bench.PutNetwork(kTwoLoops);
    bench.study.results_valid = true;
    const std::string rows = bench.Bytes();
    FailingDisk disk(bench.work_disk);
    Workspace workspace(disk, TestBench::kProgramFolder, bench.outer_disk,
                        TestBench::kLibraryFolder, bench.clock);
    Workbench failing{bench.study, workspace, bench.pipes, bench.prompter};
    EmitterEntry entry(failing);
    disk.FailAtOperation(operation, FailingDisk::Lasting::kOnce);
    try {
      entry.Store(1, {2, 999, 500});
      EXPECT_EQ(entry.At(1).flow_lh, 999.0F);
      entry.End();
      EXPECT_EQ(bench.Row(2).WaterFlow, 999.0F);
    } catch (const Fault& fault) {
      EXPECT_NE(fault.file_error(), nullptr);
      EXPECT_EQ(bench.Bytes(), rows) << operation;
      EXPECT_TRUE(bench.study.results_valid) << operation;
      EXPECT_EQ(bench.Rows(work_file::kEmitters).size(), 2U);
      disk.Mend();
      entry.Store(1, {2, 999, 500});
      entry.End();
      EXPECT_EQ(bench.Row(2).WaterFlow, 999.0F) << "tried once more";
    }
  }
}

// After a kill at any step of the end the rows are those from before or those from after, and no
// emitter is lost.
TEST(EmitterEntry, SurvivesAKillAtAnyStepOfItsEnd) {
  std::string old_rows;
  std::string new_rows;
  bool ended = false;
  for (int step = 1; !ended; ++step) {
    ASSERT_LT(step, 60);
    TestBench bench;
    bench.PutNetwork(kTwoLoops);
    old_rows = bench.Bytes();
    {
      EmitterEntry whole(bench.bench);
      whole.Store(3, {5, 70, 80});
      whole.End();
      new_rows = bench.Bytes();
    }
    bench.PutNetwork(kTwoLoops);
    EmitterEntry(bench.bench).Append({{5, 70, 80}});

    struct Killed {};
    KillingDisk disk(bench.work_disk, step, [] { throw Killed{}; });
    Workspace workspace(disk, TestBench::kProgramFolder, bench.outer_disk,
                        TestBench::kLibraryFolder, bench.clock);
    Workbench killed{bench.study, workspace, bench.pipes, bench.prompter};
    try {
      EmitterEntry entry(killed);
      entry.End();
      ended = true;
    } catch (const Killed&) {
    }
    const std::string rows = bench.Bytes();
    EXPECT_TRUE(rows == old_rows || rows == new_rows) << step;
    EXPECT_EQ(EmitterList(bench).size(), 3U) << step;
    bench.study.recovery = true;
    bench.study.unsaved_changes = false;
    ASSERT_TRUE(LoadStudy(bench.bench, RecentList::kLeave, {}).ok()) << step;
    EXPECT_EQ(bench.study.emitters_unchecked, rows == old_rows) << step;
    EmitterEntry(bench.bench).End();
    EXPECT_EQ(RowFlows(bench), (std::vector<float>{0, 300, 200, 0, 70})) << step;
  }
}

}  // namespace
}  // namespace kalvo

#include "shell/unreadable_work.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "shell/recovery.h"
#include "study/safety_copies.h"
#include "study/write_study.h"
#include "tests/support/failing_disk.h"
#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;
const fs::path kProgram = TestBench::kProgramFolder;

// A user who goes on without what cannot be read, never without a safety copy.
class BoldUser : public Prompter {
 public:
  Answer ShowMessage(int /*code*/, const Study& /*study*/) override { return Answer::kNone; }
  Answer Ask(const Box& box) override {
    lines.insert(lines.end(), box.lines.begin(), box.lines.end());
    if (!StyleAsks(box.style)) return Answer::kNone;
    ++questions;
    return box.lines.back().find("αντίγραφο") == std::string::npos ? Answer::kYes : Answer::kNo;
  }
  [[nodiscard]] bool WasTold(const std::string& line) const {
    return std::ranges::find(lines, line) != lines.end();
  }
  std::vector<std::string> lines;
  int questions = 0;
};

// What an earlier run left, a disk that fails and a work file that cannot be read.
struct LeftBehind {
  explicit LeftBehind(std::string_view unreadable) {
    desk.data_folder = kStudies;
    desk.state_folder = "/state";
    EXPECT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
    PutSampleStudy(test.bench, "Από πριν");
    rows = test.Bytes();
    for (const char* const name : {work_file::kRebuilt, work_file::kFirstRows}) Leave(name, rows);
    if (unreadable == work_file::kSummerRows || unreadable == work_file::kRowsBeforeChange) {
      Leave(unreadable, rows);
    }
    test.study = Study{};
    test.study.system_kind = SystemKind::kClosed;
    test.study.pipe_system_number = 1;
    work.Bar(unreadable);
  }
  void Leave(std::string_view name, std::string bytes) {
    EXPECT_TRUE(test.workspace.Write(name, std::move(bytes)).ok());
  }
  [[nodiscard]] std::string Aside(std::string_view name) const {
    return test.Bytes(std::string(name) + kAsideEnd);
  }
  // The bytes are somewhere in the program folder or in a safety copy.
  [[nodiscard]] bool IsKept(const std::string& bytes) const {
    const auto holds = [&](const Disk& disk, const fs::path& folder) {
      return std::ranges::any_of(ImageOf(disk, folder),
                                 [&](const auto& file) { return file.second == bytes; });
    };
    bool kept = holds(test.work_disk, kProgram);
    for (const fs::path& where : {kStudies, fs::path("/state")}) {
      const fs::path above = where / kSafetyFolder;
      for (const std::string& copy : SafetyCopyNames(test.outer_disk, above)) {
        kept = kept || holds(test.outer_disk, above / copy);
      }
    }
    return kept;
  }

  TestBench test;
  FailingDisk failing{test.work_disk};
  UnreadableDisk work{failing};
  FailingDisk outer{test.outer_disk};
  Workspace workspace{work, kProgram, outer, TestBench::kLibraryFolder, test.clock};
  BoldUser user;
  Workbench bench{test.study, workspace, test.pipes, user};
  NotedNavigator navigator;
  CountedSound sound;
  NotedViewer viewer;
  MemoryClipboard clipboard;
  NotedPrinter printer;
  Desk desk{bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};
  std::string rows;
};

TEST(UnreadableWork, RowsAreMovedAsideAndNamedAndWhatIsLeftIsOffered) {
  for (const char* const name :
       {work_file::kRows, work_file::kSummerRows, work_file::kRowsBeforeChange}) {
    SCOPED_TRACE(name);
    LeftBehind left(name);
    const std::string aside = std::string(name) + kAsideEnd;
    left.Leave(aside, "of an earlier time");
    const auto found = SettleWorkFiles(left.desk);
    ASSERT_TRUE(found.ok() && *found);
    EXPECT_EQ(left.user.questions, 1);
    EXPECT_TRUE(left.user.WasTold("Σφάλμα του δίσκου : " + (kProgram / name).string()));
    EXPECT_EQ(left.test.Bytes(aside), "of an earlier time") << "nothing is replaced";
    EXPECT_EQ(left.test.Bytes(aside + "2"), left.rows);
    EXPECT_TRUE(left.user.WasTold((kProgram / (aside + "2")).string()));
    EXPECT_EQ((*found)->what, LeftOver::kStudy) << "the rows, or an older copy of them";
    EXPECT_EQ(left.test.Bytes(), left.rows);
    EXPECT_TRUE(DiscardLeftOver(left.desk));
    EXPECT_EQ(left.test.Bytes(aside + "2"), left.rows) << "no list takes it for a work file";
  }
}

TEST(UnreadableWork, FilesBesideTheRowsBarNoRecoveryAndNoSave) {
  for (const char* const name :
       {work_file::kFluid, work_file::kWinter, work_file::kRebuilt, work_file::kFirstRows,
        work_file::kSheet, work_file::kSheetIntro}) {
    SCOPED_TRACE(name);
    LeftBehind left(name);
    if (!left.test.workspace.Exists(name)) left.Leave(name, "cells");
    const std::string bytes = left.test.Bytes(name);
    const auto found = SettleWorkFiles(left.desk);
    ASSERT_TRUE(found.ok() && *found);
    EXPECT_EQ(left.user.questions, 0);
    EXPECT_EQ(left.Aside(name), bytes);
    EXPECT_TRUE(left.user.WasTold((kProgram / (std::string(name) + kAsideEnd)).string()));
    ASSERT_TRUE(AcceptRecovery(left.desk, **found));
    EXPECT_EQ(left.test.study.study_title, "Από πριν");
    EXPECT_EQ(left.test.study.fluid_assumed, name == std::string_view(work_file::kFluid));
    left.test.study.study_path = kStudies / "a.PCK";
    EXPECT_TRUE(WriteStudy(left.bench).ok());
  }
}

TEST(UnreadableWork, BarsNoCopyOfRowsThatAreDisplaced) {
  LeftBehind left(work_file::kFluid);
  auto older = left.test.Rows();
  older[0].Length = 99;
  left.Leave(work_file::kRowsBeforeChange, EncodeRows<SectionRow>(older));
  const auto found = SettleWorkFiles(left.desk);
  ASSERT_TRUE(found.ok() && *found);
  EXPECT_EQ(left.user.questions, 0);
  left.test.workspace.Delete(work_file::kRebuilt);
  left.test.workspace.Delete(work_file::kFirstRows);
  EXPECT_TRUE(left.IsKept(left.rows));
}

TEST(UnreadableWork, NothingIsLostWhicheverStepTheDiskRefuses) {
  using Lasting = FailingDisk::Lasting;
  for (const char* const name :
       {work_file::kRows, work_file::kSummerRows, work_file::kFluid, work_file::kSheetInWork}) {
    for (const Lasting lasting : {Lasting::kOnce, Lasting::kFromThenOn}) {
      for (const bool fails_in_work : {true, false}) {
        bool reached = true;
        for (int number = 1; reached; ++number) {
          SCOPED_TRACE(std::string(name) + ", operation " + std::to_string(number));
          ASSERT_LT(number, 60);
          LeftBehind left(name);
          left.test.workspace.Delete(work_file::kRebuilt);
          left.test.workspace.Delete(work_file::kFirstRows);
          if (name == std::string_view(work_file::kRows) ||
              name == std::string_view(work_file::kSheetInWork)) {
            left.Leave(name, "unique");
          }
          const std::string bytes = left.test.Bytes(name);
          const std::string fluid = left.test.Bytes(work_file::kFluid);
          FailingDisk& bad = fails_in_work ? left.failing : left.outer;
          bad.FailAtOperation(number, lasting);
          const auto found = SettleWorkFiles(left.desk);
          if (found && *found && (*found)->what == LeftOver::kStudy) {
            static_cast<void>(AcceptRecovery(left.desk, **found));
          }
          reached = bad.operations() >= number;
          EXPECT_TRUE(left.test.Bytes(name) == bytes || left.Aside(name) == bytes);
          EXPECT_TRUE(left.IsKept(fluid));
          const bool in_place = left.test.Bytes(name) == bytes;
          EXPECT_TRUE(!in_place || !found || !*found) << "nobody goes on over it";
        }
      }
    }
  }
}

TEST(UnreadableWork, StaysWhereItIsWhenItCannotBeRenamedOrTheUserSaysNo) {
  LeftBehind left(work_file::kRows);
  left.failing.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  EXPECT_EQ(*SettleWorkFiles(left.desk), std::nullopt);
  EXPECT_EQ(left.test.Bytes(), left.rows);
  EXPECT_EQ(left.user.lines.back(),
            "Ο δίσκος είναι γεμάτος : " + left.workspace.Path(work_file::kRows).string());

  left.failing.Mend();
  const FolderImage before = ImageOf(left.test.work_disk, kProgram);
  Workbench with_script{left.test.study, left.workspace, left.test.pipes, left.test.prompter};
  Desk desk{with_script,    left.navigator, left.sound,          left.viewer,
            left.clipboard, left.printer,   Separators{',', '.'}};
  left.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kNo);
  EXPECT_EQ(*SettleWorkFiles(desk), std::nullopt);
  EXPECT_EQ(left.test.prompter.boxes().back().style, box_style::kDefaultNo);
  EXPECT_EQ(ImageOf(left.test.work_disk, kProgram), before);
}

TEST(UnreadableWork, MakesNoSafetyCopyOfNothing) {
  LeftBehind left(work_file::kRows);
  for (const char* const name : work_file::kAll) {
    if (std::string_view(name) != work_file::kRows) left.test.workspace.Delete(name);
  }
  const auto found = SettleWorkFiles(left.desk);
  ASSERT_TRUE(found.ok() && *found);
  EXPECT_EQ((*found)->what, LeftOver::kNothing);
  EXPECT_EQ(left.Aside(work_file::kRows), left.rows);
  EXPECT_TRUE(NamesIn(left.test.outer_disk, kStudies / kSafetyFolder).empty());
}

// A folder of safety copies into which nobody may look.
class ClosedCopies : public ForwardingDisk {
 public:
  using ForwardingDisk::ForwardingDisk;
  [[nodiscard]] Result<std::optional<FileStatus>> Status(const fs::path& path) const override {
    if (path.parent_path() != kStudies / kSafetyFolder) return inner_.Status(path);
    return FileError{path, "Δεν επιτρέπεται η πρόσβαση"};
  }
};

TEST(SafetyCopies, GoToTheStateFolderWhereTheirOwnCannotBeLookedInto) {
  LeftBehind left("");
  ClosedCopies closed(left.test.outer_disk);
  Workspace workspace{left.work, kProgram, closed, TestBench::kLibraryFolder, left.test.clock};
  Workbench bench{left.test.study, workspace, left.test.pipes, left.user};
  Desk desk{bench,          left.navigator, left.sound,          left.viewer,
            left.clipboard, left.printer,   Separators{',', '.'}};
  desk.data_folder = kStudies;
  desk.state_folder = "/state";
  EXPECT_TRUE(KeepSafetyCopyAnyway(bench, desk.safety_folders()));
  EXPECT_EQ(SafetyCopyNames(closed, fs::path("/state") / kSafetyFolder).size(), 1U);
}

}  // namespace
}  // namespace kalvo

#include <gtest/gtest.h>

#include <functional>

#include "results/results_session.h"
#include "shell/data_folder.h"
#include "shell/options.h"
#include "shell/program_folder.h"
#include "shell/program_log.h"
#include "shell/recovery.h"
#include "shell/studies_index.h"
#include "shell/study_dialogs.h"
#include "study/fluid_library.h"
#include "study/recent_files.h"
#include "study/write_study.h"
#include "tests/support/failing_disk.h"
#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;
const fs::path kState = "/state";

// A program in the midst of a study, on disks on which one file cannot be read.
struct Unreadable : TestDesk {
  explicit Unreadable(std::string_view name) {
    SaveSample(test, "other.PCK", "Άλλη");
    EXPECT_TRUE(test.outer_disk.Write(kState / "VamoProgs.log", std::string(250, 'x')).ok());
    PutSampleStudy(test.bench, "Κτίριο");
    test.study.study_path = kStudies / "mine.PCK";
    Put(work_file::kDataFolder, "/elsewhere/PFILES/\n");
    Put(work_file::kRecentFiles, "\"/studies/a.PCK\"\n");
    Put(work_file::kOptions, "SoundOn=1\n");
    Put(work_file::kStudiesIndex, std::string(526, ' '));
    if (name == work_file::kSheet || name == work_file::kSheetIntro ||
        name == work_file::kSheetInWork) {
      Put(name, "cells");
    }
    if (name == work_file::kSummerRows || name == work_file::kRowsBeforeChange) {
      Put(name, test.Bytes());
    }
    there.data_folder = kStudies;
    EXPECT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
    there.state_folder = kState;
    work.Bar(name);
    outer.Bar(name);
  }
  void Put(std::string_view name, std::string bytes) {
    EXPECT_TRUE(test.workspace.Write(name, std::move(bytes)).ok());
  }
  UnreadableDisk work{test.work_disk};
  UnreadableDisk outer{test.outer_disk};
  Workspace workspace{work, TestBench::kProgramFolder, outer, TestBench::kLibraryFolder,
                      test.clock};
  Workbench bench{test.study, workspace, test.pipes, test.prompter};
  Desk there{bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};
};

// The bytes of `name`, wherever it is.
FolderImage Everywhere(const Unreadable& program, const std::string& name) {
  FolderImage image;
  const fs::path in_work = fs::path(TestBench::kProgramFolder) / name;
  if (const auto bytes = program.test.work_disk.Read(in_work)) image["work"] = *bytes;
  for (const fs::path& folder : {fs::path(TestBench::kLibraryFolder), kStudies, kState}) {
    if (const auto bytes = program.test.outer_disk.Read(folder / name)) {
      image[folder.string()] = *bytes;
    }
  }
  return image;
}

struct Case {
  std::string name;
  std::function<void(Unreadable&)> action;
  bool asks = false;  // is the study to go without a copy, or the program to go on without a file?
};

// What reads each file, and would replace or delete it if it were missing or empty.
const std::vector<Case> kCases = {
    {work_file::kRows, [](Unreadable& p) { EXPECT_FALSE(ThrowAwayStudy(p.there)); }, true},
    {work_file::kRows, [](Unreadable& p) { EXPECT_FALSE(*SettleWorkFiles(p.there)); }, true},
    {work_file::kRows, [](Unreadable& p) { EXPECT_FALSE(WriteStudy(p.bench).ok()); }},
    {work_file::kFluid, [](Unreadable& p) { EXPECT_FALSE(ThrowAwayStudy(p.there)); }, true},
    {work_file::kFluid, [](Unreadable& p) { EXPECT_FALSE(LoadStudyFluid(p.bench).ok()); }},
    {work_file::kFluid, [](Unreadable& p) { EXPECT_FALSE(WriteStudy(p.bench).ok()); }},
    {work_file::kWinter, [](Unreadable& p) { EXPECT_FALSE(ThrowAwayStudy(p.there)); }, true},
    {work_file::kWinter, [](Unreadable& p) { EXPECT_FALSE(WriteStudy(p.bench).ok()); }},
    {work_file::kStatistics, [](Unreadable& p) { EXPECT_FALSE(WriteStudy(p.bench).ok()); }},
    {work_file::kStatistics, [](Unreadable& p) { EXPECT_TRUE(SetDamagedAside(p.there)); }},
    {work_file::kEmitters,
     [](Unreadable& p) {
       FoundLeftOver found;
       found.kind = SystemKind::kClosed;
       EXPECT_TRUE(AcceptRecovery(p.there, found)) << "it follows from the rows";
       EXPECT_TRUE(p.test.study.emitters_unchecked);
     }},
    {work_file::kSheet, [](Unreadable& p) { EXPECT_FALSE(ThrowAwayStudy(p.there)); }, true},
    {work_file::kSummerRows, [](Unreadable& p) { EXPECT_FALSE(*SettleWorkFiles(p.there)); }, true},
    {work_file::kRowsBeforeChange, [](Unreadable& p) { EXPECT_FALSE(*SettleWorkFiles(p.there)); },
     true},
    {work_file::kSheetIntro, [](Unreadable& p) { EXPECT_FALSE(AcceptSheet(p.there, {})); }, true},
    {work_file::kSheetInWork, [](Unreadable& p) { EXPECT_FALSE(ThrowAwayStudy(p.there)); }, true},
    {work_file::kSheetInWork, [](Unreadable& p) { EXPECT_FALSE(*SettleWorkFiles(p.there)); }, true},
    {work_file::kDataFolder,
     [](Unreadable& p) { EXPECT_FALSE(EnsureDataFolder(p.workspace).ok()); }},
    {work_file::kRecentFiles,
     [](Unreadable& p) {
       EXPECT_FALSE(AddRecentFile(p.workspace, "/studies/b.PCK").ok());
       EXPECT_TRUE(TidyRecentFiles(p.workspace));
     }},
    {work_file::kOptions,
     [](Unreadable& p) { EXPECT_FALSE(WriteOptions(p.workspace, Options{}).ok()); }},
    {work_file::kStudiesIndex,
     [](Unreadable& p) {
       EXPECT_EQ(ListStudies(p.workspace, kStudies, SystemKind::kClosed).size(), 1U);
     }},
    {"VamoProgs.log", [](Unreadable& p) { RecordProgram(p.outer, kState, "/program"); }},
    {"0001.WPT",
     [](Unreadable& p) { EXPECT_FALSE(BuildPipeList(p.workspace, EmptyLibraries::kDelete).ok()); }},
    {work_file::kFluids, [](Unreadable& p) { EXPECT_TRUE(CreateFluidLibrary(p.workspace).ok()); }},
    {work_file::kFluids,
     [](Unreadable& p) {
       FluidRow fluid;
       fluid.row_number = 2;
       EXPECT_FALSE(SaveFluid(p.workspace, fluid).ok());
     }},
    {"other.LQD",
     [](Unreadable& p) {
       EXPECT_FALSE(OpenChosen(p.there, kStudies / "other.PCK", RecentList::kLeave));
       EXPECT_EQ(p.test.Row(1).Thema.Utf8(), "Κτίριο") << "the open study stays";
     }},
    {"other.PCK",
     [](Unreadable& p) {
       EXPECT_FALSE(OpenChosen(p.there, kStudies / "other.PCK", RecentList::kLeave));
       EXPECT_EQ(p.test.Row(1).Thema.Utf8(), "Κτίριο");
     }},
};

TEST(UnreadableFiles, AreNeverTakenForMissingOrEmptyAndStayAsTheyAre) {
  for (const Case& at : kCases) {
    SCOPED_TRACE(at.name);
    Unreadable program(at.name);
    const FolderImage before = Everywhere(program, at.name);
    ASSERT_FALSE(before.empty());
    if (at.asks) program.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kNo);
    at.action(program);
    EXPECT_EQ(Everywhere(program, at.name), before);
  }
}

TEST(UnreadableFiles, OlderRowsStayWhileThePresentOnesCannotBeRead) {
  Unreadable program(work_file::kRows);
  program.Put(work_file::kFirstRows, "older rows");
  LeaveByWindow(program.there);
  EXPECT_EQ(program.test.Bytes(work_file::kFirstRows), "older rows");
}

TEST(UnreadableFiles, AProgramFolderThatCannotBeReadIsNotFilledAnew) {
  Unreadable program("library");
  EXPECT_FALSE(FillProgramFolder(program.outer, TestBench::kLibraryFolder, "/installed").ok());
}

}  // namespace
}  // namespace kalvo

#include "study/kept_sheet.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "study/real_disk.h"
#include "study/sheet_intro.h"
#include "tests/support/failing_disk.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

Study StudyOf(std::string title) {
  Study study;
  study.study_title = std::move(title);
  study.system_kind = SystemKind::kOpen;
  study.TotalFlowM3h = 3.25F;
  study.MeanTemp = -12.5F;
  study.MeanVel = 0.75F;
  study.plant_section = 2;
  study.pipe_system_number = 11;
  return study;
}

TEST(SheetIntro, IsSevenQuotedLines) {
  const SheetIntro intro = IntroOf(StudyOf("Το \"Αστέρι\""));
  const std::string text =
      "\"Το \"Αστέρι\"\"\n\"OPEN\"\n\"3.25\"\n\"-12.5\"\n\"0.75\"\n\"2\"\n\"11\"\n";
  EXPECT_EQ(EncodeIntro(intro), text);
  EXPECT_EQ(*DecodeIntro(text, "Intro.ss2"), intro);
  EXPECT_EQ(*DecodeIntro(ToCodePage(text), "Intro.ss2"), intro);
  Study study;
  TakeIntro(study, intro);
  EXPECT_EQ(IntroOf(study), intro);
}

TEST(SheetIntro, KeepsEveryDigit) {
  Study study = StudyOf("Σχολείο");
  study.TotalFlowM3h = 16.666668F;
  study.MeanTemp = 4.4444445e27F;
  study.MeanVel = 1e-45F;
  EXPECT_EQ(*DecodeIntro(EncodeIntro(IntroOf(study)), "Intro.ss2"), IntroOf(study));
}

TEST(SheetIntro, StaysOfSevenLinesWhateverTheTitleIs) {
  const SheetIntro intro = IntroOf(StudyOf("Δύο\r\nγραμμές"));
  EXPECT_EQ(DecodeIntro(EncodeIntro(intro), "Intro.ss2")->study_title, "Δύο  γραμμές");
}

TEST(SheetIntro, RefusesWhatIsCutOrDoesNotFit) {
  const std::string text = EncodeIntro(IntroOf(StudyOf("Σχολείο")));
  EXPECT_EQ(DecodeIntro(text.substr(0, text.size() - 5), "/p/Intro.ss2").error().Line(),
            "Το αρχείο είναι ελλιπές : /p/Intro.ss2");
  for (const char* const bad : {"1\n2\n3\n4\n99999999999999999999999999999999999999999\n6\n7\n",
                                "1\n2\n3\n4\n5\n6\n70000\n"}) {
    EXPECT_FALSE(DecodeIntro(bad, "Intro.ss2").ok()) << bad;
  }
}

TEST(KeptSheet, IsKeptUntilItIsDroppedAndTakesItsIntroAlong) {
  TestBench test;
  Workspace& workspace = test.workspace;
  EXPECT_FALSE(IsSheetKept(workspace));
  const Study study = StudyOf("Σχολείο");
  ASSERT_TRUE(KeepSheet(workspace, study, work_file::kSheetInWork, "cells").ok());
  ASSERT_TRUE(FlushSheet(workspace, work_file::kSheetInWork).ok());
  EXPECT_TRUE(IsSheetKept(workspace));
  EXPECT_EQ(test.Bytes(work_file::kSheetInWork), "cells");
  EXPECT_EQ(test.Bytes(work_file::kSheetIntro), EncodeIntro(IntroOf(study)));
  DropKeptSheet(workspace);
  EXPECT_FALSE(IsSheetKept(workspace));
  EXPECT_FALSE(workspace.Exists(work_file::kSheetIntro));

  ASSERT_TRUE(KeepSheet(workspace, study, work_file::kSheet, "saved").ok());
  ASSERT_TRUE(KeepSheet(workspace, study, work_file::kSheetInWork, "cells").ok());
  DropKeptSheet(workspace);
  EXPECT_TRUE(workspace.Exists(work_file::kSheetIntro)) << "the saved sheet needs it";
}

TEST(KeptSheet, OnADiskThatFailsTheOlderOneStays) {
  TestBench test;
  FailingDisk disk(test.work_disk);
  Workspace workspace(disk, TestBench::kProgramFolder, test.outer_disk, TestBench::kLibraryFolder,
                      test.clock);
  ASSERT_TRUE(KeepSheet(workspace, StudyOf("Παλιά"), work_file::kSheetInWork, "older").ok());
  for (int operation = 1; operation <= 4; ++operation) {
    disk.FailAtOperation(operation, FailingDisk::Lasting::kFromThenOn);
    const Study newer = StudyOf("Νέα" + std::to_string(operation));
    EXPECT_FALSE(KeepSheet(workspace, newer, work_file::kSheetInWork, "newer").ok());
    disk.Mend();
    EXPECT_EQ(test.Bytes(work_file::kSheetInWork), "older") << operation;
    EXPECT_TRUE(DecodeIntro(test.Bytes(work_file::kSheetIntro), "Intro.ss2").ok());
  }
  disk.FailAtOperation(1, FailingDisk::Lasting::kOnce);
  EXPECT_FALSE(KeepSheet(workspace, StudyOf("Τρίτη"), work_file::kSheetInWork, "newer").ok());
  EXPECT_EQ(test.Bytes(work_file::kSheetInWork), "newer") << "the cells are worth more";
  disk.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  DropKeptSheet(workspace);
  EXPECT_TRUE(IsSheetKept(workspace));
  EXPECT_TRUE(workspace.Exists(work_file::kSheetIntro));
}

TEST(KeptSheet, KilledAtAnyStepIsTheOlderOrTheNewerWithItsIntro) {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("kalvo_sheet_" + std::to_string(getpid()));
  for (const bool older : {true, false}) {
    for (int step = 1, killed = 1; killed != 0; ++step) {
      SCOPED_TRACE(step);
      ASSERT_LT(step, 20);
      std::filesystem::remove_all(folder);
      std::filesystem::create_directory(folder);
      RealDisk real;
      NoWait clock;
      Workspace workspace(real, folder, real, folder, clock);
      const auto keep = [&](Workspace& into, const char* title) {
        return KeepSheet(into, StudyOf(title), work_file::kSheetInWork, title).ok();
      };
      ASSERT_TRUE(!older || keep(workspace, "older"));
      const pid_t child = fork();
      if (child == 0) {
        KillingDisk disk(real, step);
        Workspace dying(disk, folder, real, folder, clock);
        _exit(keep(dying, "newer") ? 0 : 1);
      }
      int status = 0;
      ASSERT_EQ(waitpid(child, &status, 0), child);
      killed = WIFSIGNALED(status) ? 1 : 0;
      if (!older && !IsSheetKept(workspace)) continue;
      const auto sheet = workspace.Read(work_file::kSheetInWork);
      ASSERT_TRUE(sheet.ok());
      EXPECT_TRUE(*sheet == "newer" || (older && killed == 1 && *sheet == "older")) << *sheet;
      EXPECT_TRUE(DecodeIntro(*workspace.Read(work_file::kSheetIntro), "Intro.ss2").ok());
    }
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace kalvo

#include "shell/frm_safety.h"

#include <gtest/gtest.h>

#include "shell/study_dialogs.h"
#include "study/study_origin.h"
#include "tests/support/dated_disk.h"
#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

struct SafetyWindow : TestDesk, ::testing::Test {
  SafetyWindow() {
    desk.data_folder = "/studies";
    EXPECT_TRUE(test.outer_disk.MakeFolder("/studies").ok());
    desk.state_folder = "/state";
  }
  // A copy of a study of that title, made at that moment.
  void Keep(std::string_view title, std::int64_t moment) {
    clock.now = moment;
    PutSampleStudy(test.bench, title);
    Workspace workspace(test.work_disk, TestBench::kProgramFolder, test.outer_disk,
                        TestBench::kLibraryFolder, clock);
    NoteOrigin(workspace, "/studies/" + std::string(title) + ".PCK");
    Workbench bench(test.study, workspace, test.pipes, test.prompter);
    Desk at{bench, navigator, sound, viewer, clipboard, printer, desk.separators};
    at.data_folder = desk.data_folder;
    ASSERT_TRUE(KeepSafetyCopyAnyway(at.bench, at.safety_folders()));
  }
  StandingClock clock;
};

TEST_F(SafetyWindow, ListsTheNewestFirstAndOpensOneAsAnUnsavedStudyOfItsOwnName) {
  Keep("Παλιά", 1'700'000'000);
  Keep("Νέα", 1'700'000'100);
  ASSERT_TRUE(test.outer_disk.MakeFolder("/studies/ASFALEIA/2026-11-25_000000").ok()) << "empty";
  test.study.unsaved_changes = false;
  navigator.Expect(screen::kSafetyCopies, [this] {
    FrmSafety form(desk);
    form.Load();
    ASSERT_EQ(form.fpSpread1.row_count(), 2);
    EXPECT_EQ(form.fpSpread1.At(0, 0).text, "Νέα");
    EXPECT_EQ(form.fpSpread1.At(1, 0).text, "Παλιά");
    EXPECT_EQ(form.fpSpread1.At(1, 2).text, "3");
    EXPECT_EQ(form.fpSpread1.At(1, 3).text, "/studies/Παλιά.PCK");
    form.fpSpread1.MoveTo({1, 0});
    form.Derive();
    EXPECT_EQ(form.LblPlace.text.substr(0, 18), "/studies/ASFALEIA/");
    test.prompter.Expect(135, Answer::kYes);
    form.Press(Plain(KeyCode::kEnter));
  });
  OpenFromDialog(desk, screen::kSafetyCopies);
  const Study& study = test.study;
  EXPECT_EQ(study.study_title, "Παλιά");
  EXPECT_TRUE(study.unsaved_changes);
  EXPECT_TRUE(study.study_path.empty());
  EXPECT_EQ(study.origin_path, "/studies/Παλιά.PCK");
  EXPECT_EQ(ReadOrigin(test.workspace), "/studies/Παλιά.PCK") << "known after a crash too";
  EXPECT_FALSE(test.workspace.Exists(work_file::kRecentFiles));
}

TEST_F(SafetyWindow, SaysWhenThereIsNone) {
  FrmSafety form(desk);
  form.Load();
  EXPECT_TRUE(form.LblEmpty.visible);
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_TRUE(navigator.log.empty());
}

}  // namespace
}  // namespace kalvo

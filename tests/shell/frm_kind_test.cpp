#include "shell/frm_kind.h"

#include <gtest/gtest.h>

#include "shell/frm_title.h"
#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

struct KindScreen : TestDesk, ::testing::Test {
  KindScreen() {
    desk.data_folder = "/studies";
    EXPECT_TRUE(test.outer_disk.MakeFolder("/studies").ok());
    test.study.system_kind = SystemKind::kNone;
    form.Load();
  }
  void LeaveRows(SystemKind kind) {
    PutSampleStudy(test.bench, "Από πριν");
    auto rows = test.Rows();
    for (SectionRow& row : rows) {
      SetKind(row, kind);
    }
    ASSERT_TRUE(test.workspace.Rows().WriteAll(rows).ok());
    test.study = Study{};
  }
  void Offer(std::optional<bool> answer) {
    navigator.Expect(screen::kOldStudy, [this, answer] { desk.questions.recover = answer; });
  }
  [[nodiscard]] std::size_t SafetyCopies() const {
    return NamesIn(test.outer_disk, "/studies/ASFALEIA").size();
  }
  FrmKind form{desk};
};

TEST_F(KindScreen, PreselectsClosedAndSetsTheKindOnlyWhenItGoesOn) {
  EXPECT_TRUE(form.SSOption1.on);
  EXPECT_EQ(test.study.system_kind, SystemKind::kNone);
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(test.study.system_kind, SystemKind::kClosed);
  EXPECT_EQ(navigator.log.back(), "show FrmMain");
  ASSERT_EQ(form.menus.size(), 1U);
  EXPECT_EQ(form.menus[0].entries[0].caption, "< Κλειστό > Σύστημα Σωλήνων");
  EXPECT_EQ(form.menus[0].entries[3].caption, "Έξοδος από το Πρόγραμμα");
  form.Run(*form.menus[0].entries[1].command);
  EXPECT_TRUE(form.SSOption2.on);
  form.Press(Alt('K'));
  EXPECT_TRUE(form.SSOption1.on);
  form.Press(Alt('A'));
  EXPECT_TRUE(form.SSOption2.on);
  EXPECT_FALSE(form.SSOption1.on);
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(navigator.log.back(), "end");
}

TEST_F(KindScreen, OffersBackWhatWasLeftAndWaitsWhenNothingIsAnswered) {
  LeaveRows(SystemKind::kClosed);
  Offer(std::nullopt);
  Click(form, form.Cmd_Go);
  EXPECT_EQ(navigator.log.back(), "modal FrmOldStudy");
  EXPECT_TRUE(test.workspace.Exists(work_file::kRows));
  Offer(true);
  Click(form, form.Cmd_Go);
  EXPECT_EQ(navigator.log.back(), "show FrmMain");
  EXPECT_EQ(test.study.study_title, "Από πριν");
  EXPECT_TRUE(test.study.unsaved_changes);
  EXPECT_TRUE(test.study.recovery);
}

TEST_F(KindScreen, KeepsASafetyCopyOfWhatIsRefusedOrOfTheOtherKind) {
  LeaveRows(SystemKind::kClosed);
  Offer(false);
  Click(form, form.Cmd_Go);
  EXPECT_FALSE(test.workspace.Exists(work_file::kRows));
  EXPECT_EQ(SafetyCopies(), 1U);
  LeaveRows(SystemKind::kOpen);
  Click(form, form.Cmd_Go);
  EXPECT_FALSE(test.workspace.Exists(work_file::kRows));
  EXPECT_EQ(SafetyCopies(), 2U);
  EXPECT_EQ(navigator.log.back(), "show FrmMain");
}

TEST_F(KindScreen, OffersWhatWasLeftOfTheOtherKindWhenAFileWasGiven) {
  LeaveRows(SystemKind::kOpen);
  desk.screens.study_argument = "/studies/x.PCK";
  form.Load();
  Offer(true);
  Click(form, form.Cmd_Go);
  EXPECT_TRUE(test.study.SystemOpen());
  EXPECT_TRUE(desk.screens.study_argument.empty()) << "it is of the other kind";
  EXPECT_TRUE(test.study.recovery);
}

TEST(TitleScreen, GoesOnOnceByKeyOrTime) {
  TestDesk desk;
  FrmTitle form(desk.desk);
  EXPECT_EQ(form.after_seconds, 4);
  EXPECT_FALSE(form.Press(Key{KeyCode::kCharacter, 0, false, true, false})) << "Shift alone";
  form.Press(Typed(U'α'));
  form.Run(*form.runs_by_itself);
  EXPECT_EQ(desk.navigator.log, (std::vector<std::string>{"close FrmTitle", "show FrmKind"}));
}

}  // namespace
}  // namespace kalvo

#include "shell/frm_old_study.h"

#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

// The offer of a study of five rows, answered by one key.
std::optional<bool> AnswerBy(const Key& key) {
  TestDesk desk;
  desk.desk.questions.offered.rows = 5;
  FrmOldStudy form(desk.desk);
  form.Load();
  EXPECT_TRUE(form.Press(key));
  EXPECT_EQ(desk.navigator.log, std::vector<std::string>{"close FrmOldStudy"});
  return desk.desk.questions.recover;
}

TEST(FrmOldStudy, TellsWhatWasFound) {
  TestDesk desk(SystemKind::kOpen);
  desk.desk.questions.offered = {1, "Σχολείο", "/studies/school.PCA", "25/11/2026, 10:30:00"};
  FrmOldStudy form(desk.desk);
  form.Load();
  EXPECT_EQ(form.LblKind.text, "ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ");
  EXPECT_EQ(form.LblRows.text, "1 τμήμα");
  EXPECT_EQ(form.LblTitle.text, "Σχολείο");
  EXPECT_EQ(form.LblFile.text, "/studies/school.PCA");
  EXPECT_EQ(form.LblMoment.text, "25/11/2026, 10:30:00");
}

TEST(FrmOldStudy, TellsThatItIsASheet) {
  for (const auto& [sections, text] : {std::pair{0, "Φύλλο χωρίς τμήματα"},
                                       {1, "Φύλλο με 1 τμήμα"},
                                       {12, "Φύλλο με 12 τμήματα"}}) {
    TestDesk desk;
    desk.desk.questions.offered = {sections, "Σχολείο", "", "", true};
    FrmOldStudy form(desk.desk);
    form.Load();
    EXPECT_EQ(form.LblRows.text, text);
  }
}

TEST(FrmOldStudy, OnlyAnAnswerIsAnAnswer) {
  EXPECT_EQ(AnswerBy(Plain(KeyCode::kEnter)), true);
  EXPECT_EQ(AnswerBy(Alt('N')), true);
  EXPECT_EQ(AnswerBy(Alt('X')), false);
  EXPECT_EQ(AnswerBy(Plain(KeyCode::kEscape)), std::nullopt);
}

TEST(FrmOldStudy, ForgetsTheAnswerOfAnEarlierOffer) {
  TestDesk desk;
  desk.desk.questions.recover = false;
  desk.navigator.Expect(screen::kOldStudy, [] {});
  EXPECT_EQ(AskToRecover(desk.desk, {1, "Σχολείο", {}, {}}), std::nullopt);
}

}  // namespace
}  // namespace kalvo

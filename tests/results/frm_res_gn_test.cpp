#include "results/frm_res_gn.h"

#include <gtest/gtest.h>

#include "tests/results/results_desk.h"

namespace kalvo {
namespace {

struct PumpSummary : ResultsDesk, ::testing::Test {
  void Open() {
    form.Load();
    form.Activate();
    TakeLog();
  }
  FrmResGn form{desk};
};

TEST_F(PumpSummary, ShowsTheDutyOfThePump) {
  test.study.TotalFlowM3h = test.study.PumpHead = 0;
  Open();
  EXPECT_EQ(form.TxtThema.text, "Δίκτυο Δοκιμής");
  EXPECT_EQ(form.TxtKind.text, "ΚΛΕΙΣΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ");
  EXPECT_EQ(form.LblWay.text, "Υπολογισμοί με βάση την Μέση Ταχύτητα");
  EXPECT_EQ(form.TxtPipes.text, "Χαλυβδοσωλήνες");
  EXPECT_EQ(form.Text2.text, "0,50");
  EXPECT_EQ(form.Text4.text, FormatPattern(test.study.PumpHead, "#,##0.00", desk.separators));
  EXPECT_EQ(form.Text6.text, "70,00");
  EXPECT_EQ(form.Text8.text, "1,00");
  EXPECT_EQ(test.study.TotalFlowM3h, 0.5F) << "row 1 is taken into the study";
  EXPECT_TRUE(test.study.results_valid);
  EXPECT_TRUE(test.study.unsaved_changes);
}

TEST_F(PumpSummary, TellsTheMethodByTheRowsAndNothingOfAnyOther) {
  test.ChangeRow(1, [](SectionRow& row) { row.INILAMDA = 2; });
  Open();
  EXPECT_EQ(form.LblWay.text,
            "Υπολογισμοί με βάση την Μέση Ταχύτητα, αλλά και την Διαθέσιμη Πίεση");
  test.ChangeRow(1, [](SectionRow& row) {
    row.INILAMDA = 1.5F;
    row.PAR = row.DP = 0;
  });
  FrmResGn other(desk);
  other.Load();
  EXPECT_EQ(other.LblWay.text, "");
  EXPECT_EQ(other.Text2.text + other.Text4.text, "0,000,00");
}

TEST_F(PumpSummary, OfTheWinterHasNoMeanVelocity) {
  desk.screens.WinterPump = true;
  test.study.MeanTemp = 45;
  Open();
  EXPECT_EQ(form.Text6.text, "45,00");
  EXPECT_EQ(form.Text8.text, "");
}

TEST_F(PumpSummary, LeadsToTheSections) {
  Open();
  desk.options.SoundOn = true;
  navigator.Show(screen::kResults);
  TakeLog();
  Click(form, form.SSCommand1);
  EXPECT_EQ(form.SSCommand1.caption, "... Παρακαλώ, Περιμένετε ...");
  EXPECT_EQ(form.SSCommand1.tone, Tone::kAlarm);
  EXPECT_EQ(sound.played, 1);
  EXPECT_EQ(TakeLog(), (std::vector<std::string>{"show FrmRes", "hide FrmResGn"}));
}

TEST_F(PumpSummary, GoesBackToTheSectionsThatItCameFrom) {
  navigator.Show(screen::kResults);
  desk.screens.ResultsLeft = true;
  Open();
  Click(form, form.SSCommand1);
  EXPECT_FALSE(desk.screens.ResultsLeft);
  EXPECT_EQ(TakeLog(), std::vector<std::string>{"close FrmResGn"});
}

TEST_F(PumpSummary, AsTheLastWindowOfResultsEndsTheirSession) {
  Open();
  ASSERT_TRUE(test.workspace.Copy(work_file::kRows, work_file::kFirstRows).ok());
  EXPECT_TRUE(form.MayClose());
  EXPECT_FALSE(test.workspace.Exists(work_file::kFirstRows));
  EXPECT_EQ(navigator.log.back(), "show FrmMain");
}

TEST_F(PumpSummary, ChecksTheNodesOfALoneSectionToo) {
  Calculate({"ANT/ANT 5m soma 300l/h 500mm"});
  Open();
  navigator.Expect(screen::kViewer, [this] { desk.questions.viewer = "WordPad"; });
  Click(form, form.Cmd_Nodes);
  EXPECT_EQ(viewer.files.size(), 1U);
}

TEST_F(PumpSummary, OfAnOpenSystemSaysSoInItsOwnLetters) {
  test.study.system_kind = SystemKind::kOpen;
  Open();
  EXPECT_EQ(form.TxtKind.text, "ANOIKΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ");
  EXPECT_EQ(form.TxtKind.text.substr(0, 5), "ANOIK") << "Latin capitals";
  EXPECT_FALSE(form.Cmd_Nodes.visible);
}

TEST_F(PumpSummary, TellsOfRowsThatCannotBeRead) {
  ASSERT_TRUE(test.workspace.Write(work_file::kRows, "odd").ok());
  Open();
  EXPECT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_EQ(form.Text2.text, "");
}

}  // namespace
}  // namespace kalvo

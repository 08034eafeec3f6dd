#include "entry/general/frm_cur_fl.h"

#include <gtest/gtest.h>

#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

struct CurrentStudyForm : TestDesk, ::testing::Test {
  FrmCurFL form{desk};
  std::string findings;

  // Checks the names of these rows, which are expected to be wrong.
  void CheckWrong(const std::vector<std::string_view>& rows) {
    test.PutNetwork(rows);
    navigator.Expect(screen::kNameErrors, [this] { findings = test.Bytes(work_file::kErrors); });
    Click(form, form.Cmd_Names);
    EXPECT_TRUE(test.study.NameErrors);
  }
};

TEST_F(CurrentStudyForm, TellsWhatTheStudyIs) {
  test.PutNetwork({"ANT/1 1m", "1/ANT 1m soma 100 l/h 10mm"});
  form.Derive();
  EXPECT_EQ(form.LblFile.text, "Αρχείο : —");
  test.study.study_short_name = "Κτίριο Α.PCK";
  test.study.study_folder = "/studies";
  test.study.study_date = "01/02/2024";
  form.Derive();
  EXPECT_EQ(form.LblFile.text, "Αρχείο : Κτίριο Α.PCK");
  EXPECT_EQ(form.LblFolder.text, "Φάκελος : /studies");
  EXPECT_EQ(form.LblThema.text, "Θέμα-Τίτλος : Δίκτυο Δοκιμής");
  EXPECT_EQ(form.LblSystem.text, "Σύστημα Σωλήνων : ΚΛΕΙΣΤΟ");
  EXPECT_EQ(form.LblSections.text, "Αριθμός Τμημάτων : 2");
  EXPECT_EQ(form.LblEmitters.text, "Αριθμός Σωμάτων : 1");
}

TEST_F(CurrentStudyForm, ListsWrongNodesAndClearsTheFlagWhenTheyAreRight) {
  ASSERT_TRUE(test.workspace.Write(work_file::kErrors, "παλιό\n").ok());
  CheckWrong({"ANT/1 1m", "1/2 1m", "3/ANT 1m"});
  EXPECT_EQ(findings,
            "Το Τμήμα 2 έχει ανύπαρκτο Τελικό Κόμβο !!\n"
            "Το Τμήμα 3 έχει ανύπαρκτο Αρχικό Κόμβο !!\n");
  test.ChangeRow(3, [](SectionRow& row) { row.Name = FixedText<7>::FromUtf8("2  /ANT"); });
  Click(form, form.Cmd_Names);
  EXPECT_EQ(test.prompter.codes(), std::vector{23}) << "the rows are read anew";
  EXPECT_FALSE(test.study.NameErrors);
}

TEST_F(CurrentStudyForm, RunsAllChecksOfAnOpenSystem) {
  test.study.system_kind = SystemKind::kOpen;
  CheckWrong({"1/ANT 1m", "2/1 1m", "2/1 1m"});
  EXPECT_EQ(findings, "Το Τμήμα 2 και το Τμήμα 3 έχουν το ίδιο όνομα !!\n");
  CheckWrong({"1/ANT 1m", "2/1 1m"});
  EXPECT_EQ(findings, "Τα Τμήματα 1 και 2 έχουν, ΧΩΡΙΣ ΛΟΓΟ, διαφορετικό όνομα...\n");
  test.PutNetwork({"1/ANT 1m", "2/1 1m", "3/1 1m"});
  Click(form, form.Cmd_Names);
  EXPECT_EQ(test.prompter.codes(), std::vector{23});
}

TEST_F(CurrentStudyForm, HasNothingToCheckWithoutRows) {
  Click(form, form.Cmd_Names);
  EXPECT_EQ(test.prompter.codes(), std::vector{139});
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(navigator.log.back(), "close FrmCurFL");
}

}  // namespace
}  // namespace kalvo

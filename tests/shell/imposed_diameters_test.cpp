#include "shell/imposed_diameters.h"

#include <gtest/gtest.h>

#include "engine/diameter_change.h"
#include "shell/frm_main.h"
#include "shell/message_table.h"
#include "shell/recovery.h"
#include "shell/study_dialogs.h"
#include "study/pipe_choice.h"
#include "study/section_entry.h"
#include "tests/results/results_desk.h"
#include "tests/support/same_row.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

const std::string kQuestion(kAttentionTitle);

// A calculated study whose sections 1 and 4 got a wider pipe from the user.
class OverruledStudy : public ResultsDesk {
 public:
  explicit OverruledStudy(SystemKind kind = SystemKind::kClosed) : ResultsDesk(kind) {
    EXPECT_TRUE(test.outer_disk.MakeFolder("/studies").ok());
    desk.data_folder = "/studies";
    test.study.study_title = "Κτίριο";
    const ChangeOutcome changed =
        ChangeDiameters(test.bench, {{{1, kind == SystemKind::kClosed ? 4 : 2}, SteelPipes()[6]}});
    EXPECT_EQ(changed.replaced, 2);
    test.study.results_valid = true;
    rows = test.Rows();
    test.study.recovery = true;  // the menu keeps what is there
    menu.Load();
    menu.Derive();
  }

  // As after a crash, with a yes to the offer.
  void Recover() {
    test.workspace.Delete(work_file::kPreviousRows);
    const auto found = SettleWorkFiles(desk);
    ASSERT_TRUE(found.ok() && found->has_value());
    ASSERT_TRUE(AcceptRecovery(desk, **found));
    menu.Derive();
  }
  void Calculate(std::optional<Answer> answer) {
    if (answer) test.prompter.Expect(kQuestion, *answer);
    Click(menu, menu.Cmd_Calc);
  }
  [[nodiscard]] bool HasImposed() const {
    return std::ranges::any_of(test.Rows(), [](const SectionRow& row) {
      return row.InDiameter < 0 && !row.NomiDiam.Trimmed().empty();
    });
  }
  void ExpectRowsAsTheyWere() const {
    const std::vector<SectionRow> now = test.Rows();
    ASSERT_EQ(now.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      ExpectSameRow(now[i], rows[i]);
    }
  }

  std::vector<SectionRow> rows;
  FrmMain menu{desk};
};

TEST(ImposedDiameters, StayWithTheirResultsWhenAStudyIsCalculatedAfterACrash) {
  for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
    OverruledStudy study(kind);
    const float head = study.test.study.PumpHead;
    study.Recover();
    study.Calculate(Answer::kYes);
    study.ExpectRowsAsTheyWere();
    EXPECT_EQ(study.test.study.PumpHead, head);
    EXPECT_FALSE(study.test.study.recalculation_needed);
    EXPECT_TRUE(study.navigator.IsOpen(screen::kResultsSheet));
  }
}

TEST(ImposedDiameters, GoOnlyAfterANoAndACancelCalculatesNothing) {
  OverruledStudy study;
  study.Recover();
  study.Calculate(Answer::kCancel);
  EXPECT_TRUE(study.HasImposed());
  EXPECT_TRUE(study.test.study.recalculation_needed);
  study.Calculate(Answer::kNo);
  EXPECT_FALSE(study.HasImposed());
  EXPECT_FALSE(study.test.study.recalculation_needed);
}

TEST(ImposedDiameters, AreAskedAboutAtANewCalculationOfResultsThatHold) {
  OverruledStudy study;
  study.test.prompter.Expect(190, Answer::kYes);
  study.Calculate(Answer::kYes);
  study.ExpectRowsAsTheyWere();
}

// The sheet empties the results of every row.
TEST(ImposedDiameters, StayWhereSectionsWereEditedAndTheOthersAreSizedAnew) {
  OverruledStudy study;
  for (int number = 1; number <= 6; ++number) study.test.ChangeRow(number, ClearResults);
  study.test.ChangeRow(5, [](SectionRow& row) { row.Length = 25; });
  study.test.study.results_valid = false;
  study.Calculate(Answer::kYes);
  const std::vector<SectionRow> now = study.test.Rows();
  for (const std::size_t i : {0U, 3U}) {
    EXPECT_EQ(now[i].InDiameter, study.rows[i].InDiameter);
  }
  EXPECT_EQ(now[4].NomiDiam.Trimmed(), study.rows[4].NomiDiam.Trimmed());
  EXPECT_GT(now[4].TotalDrop, study.rows[4].TotalDrop);
}

TEST(ImposedDiameters, OfAnotherPipeSystemGoAfterAYesOnly) {
  OverruledStudy study;
  ASSERT_TRUE(SelectPipeSystem(study.test.bench, 1).ok());
  study.Calculate(Answer::kNo);
  EXPECT_TRUE(study.HasImposed());
  study.Calculate(Answer::kYes);
  EXPECT_FALSE(study.HasImposed());
  EXPECT_EQ(study.test.Row(1).FileNumber, 2);
}

TEST(ImposedDiameters, AreNotSavedAwayWithoutAYes) {
  OverruledStudy study;
  SaveSample(study.test, "old.PCK", "Κτίριο");
  study.Recover();
  study.test.study.study_path = "/studies/old.PCK";
  const auto saved = study.test.outer_disk.Read("/studies/old.PCK");
  study.test.prompter.Expect(kQuestion, Answer::kNo);
  EXPECT_FALSE(SaveToOwnFile(study.desk));
  EXPECT_EQ(*study.test.outer_disk.Read("/studies/old.PCK"), *saved);
  EXPECT_TRUE(study.HasImposed());
  study.Calculate(Answer::kYes);
  study.test.study.results_valid = true;  // shown
  EXPECT_TRUE(SaveToOwnFile(study.desk));
  EXPECT_TRUE(study.HasImposed());
}

TEST(ImposedDiameters, ThatCannotBeReadAreNotTakenForNone) {
  OverruledStudy study;
  study.Recover();
  ASSERT_TRUE(study.test.workspace.Write(work_file::kRows, "odd").ok());
  EXPECT_EQ(AskAboutImposedDiameters(study.test.bench), ImposedDiameters::kUndecided);
  EXPECT_EQ(study.test.prompter.boxes().back().style, box_style::kStop);
}

}  // namespace
}  // namespace kalvo

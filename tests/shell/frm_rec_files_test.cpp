#include "shell/frm_rec_files.h"

#include "shell/study_dialogs.h"
#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

constexpr std::string_view kRemoveTitle = "!!  ΠΡΟΣΟΧΗ  !!";

class RecentFiles : public testing::Test {
 protected:
  RecentFiles() {
    EXPECT_TRUE(desk.test.outer_disk.MakeFolder("/studies").ok());
    PutMain(desk.test, "alsos.PCK", SampleRows(SystemKind::kClosed, "Άλσος"));
    PutMain(desk.test, "odeio.PCK", SampleRows(SystemKind::kClosed, "Ωδείο"));
    PutList(
        "\"/studies/alsos.PCK\"\n\"/studies/open.PCA\"\nC:\\PFILES\\old.pck\n"
        "/studies/odeio.PCK\n");
    form.Load();
  }
  void PutList(const std::string& text) {
    ASSERT_TRUE(desk.test.workspace.Write(work_file::kRecentFiles, text).ok());
  }
  [[nodiscard]] std::string Column(int column) const {
    std::vector<std::string> texts;
    for (int row = 0; row < form.fpSpread1.row_count(); ++row) {
      texts.push_back(form.fpSpread1.At(row, column).text);
    }
    return Joined(texts);
  }
  [[nodiscard]] const Box& LastBox() const { return desk.test.prompter.boxes().back(); }
  [[nodiscard]] std::filesystem::path chosen() const {
    return desk.desk.questions.file.value_or(ChosenFile{}).path;
  }

  TestDesk desk;
  FrmRecFiles_S form{desk.desk};
};

TEST_F(RecentFiles, ListsThoseOfTheKindAndTellsOneWhole) {
  EXPECT_EQ(Column(0), "alsos.PCK|old.pck|odeio.PCK");
  EXPECT_EQ(Column(1), "/studies|C:/PFILES|/studies");
  EXPECT_FALSE(form.LblEmpty.visible);
  form.fpSpread1.MoveTo({1, 0});
  form.Press(Plain(KeyCode::kF2));
  EXPECT_EQ(Joined(LastBox().lines), "File's Name : < old.pck >|Files' Folder < : C:/PFILES");
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_TRUE(chosen().empty());
  EXPECT_EQ(desk.navigator.log, std::vector<std::string>{"close FrmRecFiles_S"});
}

TEST_F(RecentFiles, ALineIsDeletedOnYesAndTheOthersKeepTheirBytes) {
  form.fpSpread1.MoveTo({2, 0});
  desk.test.prompter.Expect(std::string(kRemoveTitle), Answer::kNo);
  form.Press(Ctrl(KeyCode::kDelete));
  EXPECT_EQ(Joined(LastBox().lines),
            "                                ΤΟ ΑΡΧΕΙΟ :       odeio.PCK|"
            "ΘΑ ΔΙΑΓΡΑΦΕΙ ΑΠΟ ΤΗΝ ΛΙΣΤΑ ΠΡΟΣΦΑΤΩΝ ΑΡΧΕΙΩΝ !!... |"
            "      Θέλετε να συνεχίσω με την Διαγραφή ??        ");
  EXPECT_EQ(form.fpSpread1.row_count(), 3);
  desk.test.prompter.Expect(std::string(kRemoveTitle), Answer::kYes);
  form.Press(Ctrl(KeyCode::kDelete));
  EXPECT_EQ(desk.test.Bytes(work_file::kRecentFiles),
            "\"/studies/alsos.PCK\"\n\"/studies/open.PCA\"\nC:\\PFILES\\old.pck\n");
  EXPECT_EQ(form.fpSpread1.current().row, 1) << "the one above takes its place";
  EXPECT_TRUE(desk.test.outer_disk.Exists("/studies/odeio.PCK"));

  desk.test.prompter.Expect(std::string(kRemoveTitle), Answer::kYes);
  Click(form, form.CmdDelete);
  desk.test.prompter.Expect(std::string(kRemoveTitle), Answer::kYes);
  Click(form, form.CmdDelete);
  EXPECT_TRUE(form.LblEmpty.visible);
  EXPECT_EQ(desk.test.Bytes(work_file::kRecentFiles), "\"/studies/open.PCA\"\n");
  for (Command* command : {&form.CmdDelete, &form.CmdShow, &form.CmdRecall}) {
    Click(form, *command);
    EXPECT_EQ(LastBox().lines[0], "... ΔΕΝ υπάρχουν πρόσφατα Αρχεία ...");
  }
}

TEST_F(RecentFiles, TheRowPickedCountsHoweverTheTableIsSorted) {
  form.fpSpread1.CycleSort(0);
  form.fpSpread1.CycleSort(0);
  form.fpSpread1.MoveTo({2, 0});
  form.fpSpread1.on_activate();
  EXPECT_EQ(chosen(), "/studies/odeio.PCK");
  EXPECT_TRUE(desk.desk.questions.file.value().recent);
}

TEST_F(RecentFiles, AFileThatIsGoneOrOfAnotherSystemLeadsNowhere) {
  desk.test.study.unsaved_changes = true;
  form.fpSpread1.MoveTo({1, 0});
  form.Press(Plain(KeyCode::kEnter));
  ASSERT_TRUE(desk.test.outer_disk.Remove("/studies/alsos.PCK").ok());
  form.fpSpread1.MoveTo({0, 0});
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(desk.test.prompter.boxes().size(), 2U);
  EXPECT_EQ(LastBox().lines[0], "Το αρχείο δεν υπάρχει : /studies/alsos.PCK");
  EXPECT_TRUE(desk.test.prompter.codes().empty()) << "nothing is asked for a file that is gone";
  EXPECT_TRUE(chosen().empty());
  EXPECT_TRUE(desk.navigator.log.empty());
}

TEST_F(RecentFiles, RecallingAsksAboutTheOpenStudyAndMovesTheLineToTheTop) {
  desk.desk.data_folder = "/studies";
  ASSERT_TRUE(desk.test.outer_disk.MakeFolder("/studies").ok());
  PutSampleStudy(desk.test.bench, "Παλιά");
  desk.test.study.unsaved_changes = true;
  desk.test.prompter.Expect(130, Answer::kCancel);
  desk.test.prompter.Expect(135, Answer::kYes);
  desk.navigator.Expect(screen::kRecent, [this] {
    form.fpSpread1.MoveTo({2, 0});
    form.Press(Plain(KeyCode::kEnter));
    EXPECT_TRUE(chosen().empty()) << "cancelled: the list stays";
    form.Press(Plain(KeyCode::kEnter));
  });
  OpenFromDialog(desk.desk, screen::kRecent);
  EXPECT_EQ(desk.test.study.study_title, "Ωδείο");
  EXPECT_EQ(desk.test.Bytes(work_file::kRecentFiles),
            "\"/studies/odeio.PCK\"\n\"/studies/alsos.PCK\"\n\"/studies/open.PCA\"\n"
            "\"C:/PFILES/old.pck\"\n");
}

TEST_F(RecentFiles, ASaveMadeOnTheWayStandsInTheListWhenTheRecallIsStopped) {
  PutSampleStudy(desk.test.bench, "Νέα");
  desk.test.study.unsaved_changes = true;
  desk.test.prompter.Expect(130, Answer::kYes);
  desk.navigator.Expect(screen::kFiles,
                        [this] { desk.desk.questions.file = ChosenFile{"/studies/new.PCK"}; });
  desk.test.prompter.Expect(135, Answer::kNo);
  Click(form, form.CmdRecall);
  EXPECT_TRUE(chosen().empty());
  EXPECT_EQ(Column(0), "new.PCK|alsos.PCK|old.pck|odeio.PCK");
}

}  // namespace
}  // namespace kalvo

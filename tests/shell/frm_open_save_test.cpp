#include "shell/frm_open_save.h"

#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

class OpenSave : public testing::Test {
 protected:
  OpenSave() {
    desk.desk.data_folder = "/studies";
    Put("alsos.PCK", "Πισίνα άλσους");
    Put("odeio.PCK", "Ωδείο, ψύξη");
    Put("sub/villa.PCK", "Βίλα");
    Put("sub/deep/tower.PCK", "Πύργος");
    MakeFolder("/studies/sub/.hidden");
    MakeFolder("/studies/zeta");
  }
  void Put(const std::string& name, std::string_view title) {
    MakeFolder(("/studies" / std::filesystem::path(name)).parent_path());
    PutMain(desk.test, name, SampleRows(SystemKind::kClosed, title));
  }
  void MakeFolder(const std::filesystem::path& folder) {
    ASSERT_TRUE(desk.test.outer_disk.MakeFolder(folder).ok());
  }
  [[nodiscard]] std::filesystem::path chosen() const {
    return desk.desk.questions.file.value_or(ChosenFile{}).path;
  }

  TestDesk desk;
  FrmOpenSave form{desk.desk};
};

TEST_F(OpenSave, ListsTheDataFolderAndChoosesALine) {
  form.Load();
  EXPECT_EQ(Joined(form.LstStudies.lines()), "(001.) Πισίνα άλσους|(002.) Ωδείο, ψύξη");
  EXPECT_EQ(Joined(form.FileList.lines()), "alsos.PCK|odeio.PCK");
  EXPECT_EQ(form.LblCount.text, "2");
  EXPECT_EQ(form.LblPattern.text, "*.PCK");
  EXPECT_FALSE(form.LblEmpty.visible);
  form.FileList.Select(1);
  EXPECT_EQ(form.LstStudies.selected, 1);
  EXPECT_EQ(form.LblTitle.text, "Ωδείο, ψύξη");
  EXPECT_EQ(form.LblFolder.text, "/studies");
  EXPECT_EQ(form.LblFileDate.text.size(), std::string(" < dd/MM/yyyy > ").size());
  EXPECT_TRUE(form.Press(Plain(KeyCode::kEnter)));
  EXPECT_EQ(chosen(), "/studies/odeio.PCK");
  EXPECT_EQ(desk.navigator.log.back(), "close FrmOpenSave");
}

TEST_F(OpenSave, BeginsAtTheOpenStudyAndEscapeChoosesNothing) {
  desk.test.study.study_path = "/studies/odeio.PCK";
  form.Load();
  EXPECT_EQ(form.LstStudies.selected, 1);
  EXPECT_TRUE(form.Press(Plain(KeyCode::kEscape)));
  EXPECT_TRUE(chosen().empty());
  EXPECT_EQ(desk.navigator.log, std::vector<std::string>{"close FrmOpenSave"});
}

TEST_F(OpenSave, LettersTypedOnTheListSearchTitlesAndFileNames) {
  form.Load();
  ASSERT_TRUE(form.Press(Typed(U'ψ')));
  EXPECT_EQ(form.focus(), &form.TxtSearch);
  EXPECT_EQ(Joined(form.LstStudies.lines()), "(002.) Ωδείο, ψύξη");
  EXPECT_EQ(form.LblTitle.text, "Ωδείο, ψύξη");
  TypeInto(form, form.TxtSearch, "ALS");
  EXPECT_EQ(Joined(form.FileList.lines()), "alsos.PCK");
  TypeInto(form, form.TxtSearch, "ALSx");
  EXPECT_EQ(form.LblEmpty.text, "Κανένας τίτλος δεν ταιριάζει με την αναζήτηση.");
  EXPECT_EQ(form.LblTitle.text, "");
  Click(form, form.CmdOpenSave);
  EXPECT_EQ(desk.test.prompter.boxes().size(), 1U);
  EXPECT_TRUE(chosen().empty());
  TypeInto(form, form.TxtSearch, "");
  EXPECT_EQ(form.LstStudies.count(), 2);
  TypeInto(form, form.TxtSearch, "ωδ");
  form.Press(Plain(KeyCode::kDown));
  EXPECT_EQ(form.focus(), &form.LstStudies);
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(chosen(), "/studies/odeio.PCK");
}

TEST_F(OpenSave, WalksTheFoldersUnderTheFinger) {
  form.Load();
  EXPECT_EQ(Joined(form.DirList.lines()), "/|studies|sub|zeta");
  EXPECT_EQ(form.DirList.depths(), (std::vector<int>{0, 1, 2, 2}));
  EXPECT_EQ(form.DirList.selected, 1);
  form.DirList.Select(2);
  EXPECT_EQ(Joined(form.DirList.lines()), "/|studies|sub|deep|zeta");
  EXPECT_EQ(form.LblTitle.text, "Βίλα");
  form.DirList.Select(3);
  EXPECT_EQ(form.LblFolder.text, "/studies/sub/deep");
  form.DirList.Select(4);
  EXPECT_EQ(form.DirList.count(), 5) << "what stands above the line stays";
  EXPECT_EQ(form.LblEmpty.text, "Ο φάκελος δεν έχει μελέτες.");
  EXPECT_FALSE(form.LblCount.visible);
  form.DirList.Select(0);
  EXPECT_EQ(Joined(form.DirList.lines()), "/|studies");
}

TEST_F(OpenSave, AFolderThatIsGoneIsTold) {
  desk.desk.data_folder = "/stick/PFILES";
  form.Load();
  EXPECT_EQ(form.LblEmpty.text, "Ο φάκελος δεν υπάρχει.");
  EXPECT_EQ(Joined(form.DirList.lines()), "/|stick|PFILES");
  form.DirList.Select(0);
  EXPECT_EQ(Joined(form.DirList.lines()), "/|studies");
}

TEST_F(OpenSave, TheClassicDialogTakesItsPlace) {
  form.Load();
  desk.navigator.Expect(screen::kFiles,
                        [this] { desk.desk.questions.file = ChosenFile{"/c.PCK"}; });
  Click(form, form.CmdClassic);
  EXPECT_EQ(desk.navigator.log, (std::vector<std::string>{"close FrmOpenSave", "modal FrmFileOS"}));
  EXPECT_EQ(chosen(), "/c.PCK");
}

}  // namespace
}  // namespace kalvo

// What a save asks before it replaces something, and studies whose save was broken off.

#include <gtest/gtest.h>

#include "shell/frm_file_os.h"
#include "shell/frm_main.h"
#include "shell/frm_open_save.h"
#include "shell/frm_rec_files.h"
#include "shell/proposed_name.h"
#include "shell/study_dialogs.h"
#include "study/recent_files.h"
#include "study/write_study.h"
#include "tests/support/failing_disk.h"
#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;
const std::string kAttention = "  ! !   ΠΡΟΣΟΧΗ   ! ! ";

// A disk on which one file is protected from being written.
class ProtectingDisk : public ForwardingDisk {
 public:
  using ForwardingDisk::ForwardingDisk;
  std::string protected_name;

  [[nodiscard]] Result<std::optional<FileStatus>> Status(const fs::path& path) const override {
    auto status = inner_.Status(path);
    if (status && *status && path.filename() == protected_name) (*status)->writable = false;
    return status;
  }
};

class Saving : public TestDesk, public testing::Test {
 protected:
  Saving() {
    desk.data_folder = kStudies;
    EXPECT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
  }
  // The sample study, loaded from its files and changed since.
  void OpenAndChange(const std::string& name) {
    SaveSample(test, name, "Παλιά");
    ASSERT_TRUE(Load(test, name));
    PutSampleStudy(test.bench, "Νέα");
    test.study.unsaved_changes = true;
  }
  [[nodiscard]] FolderImage Studies() const { return ImageOf(test.outer_disk, kStudies); }
  // A save to the study's own file that asks once, about `file`, keeps everything on "no" and is
  // made on "yes".
  void ExpectAsked(Desk& at, const std::string& file) {
    const FolderImage before = Studies();
    test.prompter.Expect(kAttention, Answer::kNo);
    EXPECT_FALSE(SaveToOwnFile(at));
    EXPECT_EQ(test.prompter.boxes().back().lines[1], kStudies / file);
    EXPECT_EQ(Studies(), before);
    EXPECT_TRUE(test.study.unsaved_changes);
    test.prompter.Expect(kAttention, Answer::kYes);
    EXPECT_TRUE(SaveToOwnFile(at));
    EXPECT_FALSE(test.study.unsaved_changes);
    EXPECT_NE(Studies(), before);
  }
  // What is left when the first save of a study ends after its journal.
  void BreakOffFirstSave(const std::string& base) {
    TestBench other;
    PutSampleStudy(other.bench, "Μισή");
    ASSERT_TRUE(
        test.outer_disk.Write(kStudies / (base + ".PCK.new~"), other.Bytes(work_file::kRows)).ok());
    ASSERT_TRUE(
        test.outer_disk
            .Write(kStudies / (base + ".saving~"), "KALVOFLUME 1\n" + base + ".PCK\nTELOS\n")
            .ok());
  }
};

TEST_F(Saving, ToItsOwnFileAsksNothingWhereNothingIsInTheWay) {
  EXPECT_FALSE(SaveToOwnFile(desk)) << "without a file of its own the dialog is shown, with rows";
  EXPECT_EQ(test.prompter.codes(), std::vector<int>{139});
  OpenAndChange("hotel.PCK");
  EXPECT_TRUE(SaveToOwnFile(desk));
  EXPECT_EQ(Studies().at("hotel.PCK"), test.Bytes());
  EXPECT_TRUE(SaveToOwnFile(desk)) << "what it has saved itself is no change by another";
  EXPECT_TRUE(test.prompter.boxes().empty());
  test.study.study_path.clear();
  navigator.Expect(screen::kFiles,
                   [this] { desk.questions.file = ChosenFile{kStudies / "new.PCK"}; });
  EXPECT_TRUE(SaveToOwnFile(desk));
  EXPECT_TRUE(Studies().contains("new.PCK"));
}

TEST_F(Saving, AsksWhenAnotherHasChangedTheStudyOrACompanion) {
  for (const char* file : {"hotel.PCK", "hotel.WNT", "hotel.LQD"}) {
    SCOPED_TRACE(file);
    OpenAndChange("hotel.PCK");
    PutMain(test, file, std::string("another's"));
    ExpectAsked(desk, "hotel.PCK");
  }
  OpenAndChange("hotel.PCK");
  ASSERT_TRUE(test.outer_disk.Remove(kStudies / "hotel.WNT").ok());
  ExpectAsked(desk, "hotel.PCK");
}

TEST_F(Saving, AsksBeforeItReplacesAProtectedFile) {
  ProtectingDisk disk(test.outer_disk);
  Workspace workspace(test.work_disk, TestBench::kProgramFolder, disk, TestBench::kLibraryFolder,
                      test.clock);
  Workbench bench(test.study, workspace, test.pipes, test.prompter);
  Desk guarded{bench, navigator, sound, viewer, clipboard, printer, desk.separators};
  for (const char* file : {"hotel.PCK", "hotel.LQD"}) {
    OpenAndChange("hotel.PCK");
    disk.protected_name = file;
    ExpectAsked(guarded, file);
  }
}

TEST_F(Saving, AsksBeforeItChangesTheFluidOfTheOtherKindsStudy) {
  OpenAndChange("hotel.PCK");
  PutMain(test, "hotel.pca", SampleRows(SystemKind::kOpen, "Ανοικτή"));
  ExpectAsked(desk, "hotel.LQD");
  EXPECT_TRUE(SaveToOwnFile(desk)) << "its bytes stay as they are";
}

TEST_F(Saving, AStudyWhoseFirstSaveWasBrokenOffIsSeenByEveryRoadToIt) {
  const auto broken_off = [this] {
    for (const auto& [name, bytes] : Studies()) {
      ASSERT_TRUE(test.outer_disk.Remove(kStudies / name).ok());
    }
    BreakOffFirstSave("half");
  };
  broken_off();
  FrmFileOS classic(desk);
  classic.Load();
  EXPECT_EQ(Joined(classic.FileList.lines()), "half.PCK");

  broken_off();
  FrmOpenSave list(desk);
  list.Load();
  EXPECT_EQ(Joined(list.LstStudies.lines()), "(001.) Μισή");

  classic.Load();
  broken_off();
  TypeInto(classic, classic.TxtFileName, "HALF");
  Click(classic, classic.CmdOK);
  EXPECT_EQ(std::exchange(desk.questions.file, {}).value().path, kStudies / "half.PCK");

  broken_off();
  ASSERT_TRUE(AddRecentFile(test.workspace, kStudies / "half.PCK").ok());
  FrmRecFiles_S recent(desk);
  recent.Load();
  Click(recent, recent.CmdRecall);
  EXPECT_EQ(std::exchange(desk.questions.file, {}).value().path, kStudies / "half.PCK");

  broken_off();
  FrmMain menu(desk);
  menu.Load();
  desk.screens.study_argument = kStudies / "half.PCK";
  menu.Activate();
  EXPECT_EQ(test.study.study_title, "Μισή");
  EXPECT_TRUE(test.prompter.boxes().empty());
}

TEST_F(Saving, CtrlSOnTheMenuSavesAndSaysSoQuietly) {
  FrmMain form(desk);
  form.Load();
  OpenAndChange("hotel.PCK");
  form.Derive();
  EXPECT_FALSE(form.LblSaved.visible);
  form.Press(Ctrl('S'));
  form.Derive();
  EXPECT_TRUE(form.LblSaved.visible);
  EXPECT_TRUE(form.LblSaved.text.starts_with("Αποθηκεύθηκε, ώρα "));
  EXPECT_EQ(Studies().at("hotel.PCK"), test.Bytes());
  test.study.unsaved_changes = true;
  form.Derive();
  test.study.unsaved_changes = false;
  form.Derive();
  EXPECT_FALSE(form.LblSaved.visible) << "something changed since";
  navigator.Expect(screen::kFiles, [] {});
  form.Press(CtrlShift('S'));
  EXPECT_TRUE(test.prompter.boxes().empty());
}

TEST_F(Saving, TheDialogProposesANameFromTheTitleAndMakesAFolder) {
  EXPECT_EQ(ProposedName(" Ξενοδοχείο \"Άλφα\": 1/2 .."), "Ξενοδοχείο Άλφα 1 2");
  EXPECT_EQ(ProposedName("../*?"), "");
  EXPECT_EQ(ProposedName("x" + std::string(300, 'y')).size(), 200U);
  EXPECT_EQ(ProposedName("Κτίριο Α.1"), "Κτίριο Α.1");

  test.study.study_title = "Σχολείο";
  desk.questions.file_mode = FileDialogMode::kSave;
  FrmFileOS form(desk);
  form.Load();
  EXPECT_EQ(form.TxtFileName.text, "Σχολείο.PCK");
  test.study.origin_path = "/studies/2025/school.PCK";  // brought back after a crash
  form.Load();
  EXPECT_EQ(form.TxtFileName.text, "school.PCK");
  EXPECT_EQ(form.LblFolder.text, "/studies/2025");
  test.study.origin_path.clear();
  form.Load();
  EXPECT_FALSE(form.TxtNewFolder.visible);
  form.Press(CtrlShift('N'));
  for (const char* bad : {"..", "a/b"}) {
    TypeInto(form, form.TxtNewFolder, bad);
    form.Press(Plain(KeyCode::kEnter));
    EXPECT_EQ(test.prompter.boxes().back().lines[0].find("Δεν μπορεί"), 0U);
  }
  TypeInto(form, form.TxtNewFolder, "2026");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_TRUE(test.outer_disk.IsFolder(kStudies / "2026"));
  EXPECT_EQ(form.LblFolder.text, kStudies / "2026");
  EXPECT_FALSE(form.TxtNewFolder.visible);
  Click(form, form.CmdOK);
  EXPECT_EQ(desk.questions.file.value().path, kStudies / "2026" / "Σχολείο.PCK");
}

}  // namespace
}  // namespace kalvo

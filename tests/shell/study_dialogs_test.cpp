#include "shell/study_dialogs.h"

#include <gtest/gtest.h>

#include "shell/frm_file_os.h"
#include "study/real_disk.h"
#include "study/safety_copies.h"
#include "study/study_origin.h"
#include "study/write_study.h"
#include "tests/support/failing_disk.h"
#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

struct StudyDialogs : TestDesk, ::testing::Test {
  StudyDialogs() {
    desk.data_folder = kStudies;
    EXPECT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
  }
  /// A study of its own in the folder; the open one is left as it was.
  void Put(const std::string& name, std::string_view title) {
    TestBench other;
    PutSampleStudy(other.bench, title);
    const auto bytes = other.workspace.Read(work_file::kRows);
    ASSERT_TRUE(test.outer_disk.Write(kStudies / name, *bytes).ok());
  }
  void ChooseIn(std::string_view dialog, const fs::path& path) {
    navigator.Expect(dialog, [this, path] { desk.questions.file = ChosenFile{path}; });
  }
  void OpenSample() {
    PutSampleStudy(test.bench, "Παλιά");
    test.study.study_title = "Παλιά";
  }
  [[nodiscard]] std::vector<std::string> SafetyCopies() const {
    return NamesIn(test.outer_disk, kStudies / kSafetyFolder);
  }
};

TEST_F(StudyDialogs, OpeningAsksOnceAboutAStudyThatIsSaved) {
  Put("a.PCK", "Πρώτη");
  Put("b.PCK", "Δεύτερη");
  ChooseIn(screen::kStudies, kStudies / "a.PCK");
  AskToOpen(desk);
  EXPECT_EQ(test.study.study_title, "Πρώτη");
  test.prompter.Expect(135, Answer::kNo);
  AskToOpen(desk);
  EXPECT_EQ(test.study.study_title, "Πρώτη");
  ChooseIn(screen::kStudies, kStudies / "b.PCK");
  AskToOpen(desk);
  EXPECT_EQ(test.study.study_title, "Δεύτερη") << "asked once in a run";
  EXPECT_TRUE(SafetyCopies().empty()) << "nothing was thrown away that stands in no file";
}

TEST_F(StudyDialogs, CancelLosesNothingButTheFlag) {
  OpenSample();
  test.study.unsaved_changes = true;
  test.prompter.Expect(130, Answer::kCancel);
  AskToOpen(desk);
  EXPECT_FALSE(test.study.unsaved_changes);
  EXPECT_EQ(test.study.study_title, "Παλιά");
  EXPECT_TRUE(navigator.log.empty());

  // The study then goes on as if it were saved; opening another must not lose it.
  Put("b.PCK", "Δεύτερη");
  test.prompter.Expect(135, Answer::kYes);
  ChooseIn(screen::kStudies, kStudies / "b.PCK");
  AskToOpen(desk);
  EXPECT_EQ(test.study.study_title, "Δεύτερη");
  ASSERT_EQ(SafetyCopies().size(), 1U);
  const auto kept = kStudies / kSafetyFolder / SafetyCopies()[0] / "MELETH.PCK";
  EXPECT_TRUE(OpenChosen(desk, kept, RecentList::kLeave));
  EXPECT_EQ(test.study.study_title, "Παλιά");
}

TEST_F(StudyDialogs, EscapeAndAFileThatCannotBeReadLeaveTheOpenStudyWhole) {
  OpenSample();
  const std::string rows = test.Bytes();
  test.study.unsaved_changes = true;
  test.prompter.Expect(130, Answer::kYes);
  ChooseIn(screen::kFiles, "");
  AskToOpen(desk);
  EXPECT_TRUE(test.study.unsaved_changes) << "the save that was asked for was not made";

  ASSERT_TRUE(test.outer_disk.Write(kStudies / "x.PCK", "short").ok());
  test.prompter.Expect(130, Answer::kNo);
  ChooseIn(screen::kStudies, kStudies / "x.PCK");
  AskToOpen(desk);
  EXPECT_EQ(test.prompter.boxes().back().title, " !!... ΠΡΟΣΟΧΗ ...!! ");
  EXPECT_EQ(test.Bytes(), rows);
  EXPECT_TRUE(test.study.unsaved_changes);
  EXPECT_EQ(test.study.study_title, "Παλιά");
}

TEST_F(StudyDialogs, AFailedSaveKeepsPathAndFlag) {
  OpenSample();
  test.study.study_path = kStudies / "mine.PCK";
  test.study.unsaved_changes = true;
  FailingDisk full(test.outer_disk);
  full.FailAfterBytes(100);
  Workspace workspace(test.work_disk, TestBench::kProgramFolder, full, TestBench::kLibraryFolder,
                      test.clock);
  Workbench bench(test.study, workspace, test.pipes, test.prompter);
  Desk on_full_disk{bench, navigator, sound, viewer, clipboard, printer, desk.separators};
  navigator.Expect(screen::kFiles,
                   [&] { on_full_disk.questions.file = ChosenFile{kStudies / "n.PCK"}; });
  EXPECT_FALSE(SaveStudy(on_full_disk));
  EXPECT_FALSE(test.outer_disk.Exists(kStudies / "n.PCK"));
  EXPECT_TRUE(test.study.unsaved_changes);
  EXPECT_EQ(test.study.study_path, kStudies / "mine.PCK");
  EXPECT_EQ(test.prompter.boxes().size(), 1U);

  ChooseIn(screen::kFiles, kStudies / "mine.pck");
  EXPECT_TRUE(SaveStudy(desk));
  EXPECT_FALSE(test.study.unsaved_changes);
  EXPECT_EQ(test.study.study_path, kStudies / "mine.pck") << "an extension that fits stays";
}

struct FileDialog : StudyDialogs {
  FileDialog() {
    Put("hotel.PCK", "Ξενοδοχείο");
    Put("house.PCK", "Σπίτι");
    Put("office.PCA", "Γραφείο");
    EXPECT_TRUE(test.outer_disk.MakeFolder(kStudies / "2026").ok());
  }
};

TEST_F(FileDialog, ListsFoldersAndStudiesOfTheKindAndRefilters) {
  FrmFileOS form(desk);
  form.Load();
  EXPECT_EQ(form.title, "Ανάκληση Αρχείου");
  EXPECT_EQ(Joined(form.FileList.lines()), "hotel.PCK|house.PCK");
  EXPECT_EQ(Joined(form.DirList.lines()), "..|2026");
  TypeInto(form, form.TxtFileName, "HOT*");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(Joined(form.FileList.lines()), "hotel.PCK");
  EXPECT_FALSE(desk.questions.file);
  form.DirList.Activate(1);
  EXPECT_TRUE(form.LblEmpty.visible);
  Click(form, form.CmdPrePath);
  EXPECT_EQ(form.LblFolder.text, "/studies");
  form.FileList.Activate(0);
  EXPECT_EQ(desk.questions.file.value().path, kStudies / "hotel.PCK");
}

TEST_F(FileDialog, AddsTheExtensionAndChecksThatTheFileIsThere) {
  FrmFileOS form(desk);
  form.Load();
  TypeInto(form, form.TxtFileName, "nowhere");
  Click(form, form.CmdOK);
  EXPECT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_FALSE(desk.questions.file);
  TypeInto(form, form.TxtFileName, "house");
  Click(form, form.CmdOK);
  EXPECT_EQ(desk.questions.file.value().path, kStudies / "house.PCK");
  Put("Κτίριο Α.1.PCK", "Με τελεία");
  TypeInto(form, form.TxtFileName, "Κτίριο Α.1");
  Click(form, form.CmdOK);
  EXPECT_EQ(desk.questions.file.value().path, kStudies / "Κτίριο Α.1.PCK");
  Put("水.PCK", "Ξένο όνομα");
  TypeInto(form, form.TxtFileName, "水");
  Click(form, form.CmdOK);
  EXPECT_EQ(desk.questions.file.value().path, kStudies / "水.PCK");
}

TEST_F(FileDialog, GoesToAFolderThatIsNamedAndSavesIntoNoneThatIsMissing) {
  desk.questions.file_mode = FileDialogMode::kSave;
  FrmFileOS form(desk);
  form.Load();
  TypeInto(form, form.TxtFileName, "2026/");
  Click(form, form.CmdOK);
  EXPECT_EQ(form.LblFolder.text, "/studies/2026");
  TypeInto(form, form.TxtFileName, "..");
  Click(form, form.CmdOK);
  EXPECT_EQ(form.LblFolder.text, "/studies");
  for (const char* name : {"gone/", "gone/new"}) {
    TypeInto(form, form.TxtFileName, name);
    Click(form, form.CmdOK);
    EXPECT_NE(test.prompter.boxes().back().lines[0].find("/studies/gone"), std::string::npos);
  }
  EXPECT_FALSE(desk.questions.file);
}

TEST_F(FileDialog, AsksBeforeItReplacesAndMoreSoWhenAnotherHasReplacedTheStudy) {
  ASSERT_TRUE(OpenChosen(desk, kStudies / "hotel.PCK", RecentList::kLeave));
  desk.questions.file_mode = FileDialogMode::kSave;
  FrmFileOS form(desk);
  form.Load();
  EXPECT_EQ(form.TxtFileName.text, "hotel.PCK");
  test.prompter.Expect("  ! !   ΠΡΟΣΟΧΗ   ! ! ", Answer::kNo);
  Click(form, form.CmdOK);
  EXPECT_EQ(test.prompter.boxes().back().lines[0], "!! Το Αρχείο αυτό, υπάρχει ήδη !!");
  EXPECT_FALSE(desk.questions.file);

  Put("hotel.PCK", "Κάποιου άλλου");
  test.prompter.Expect("  ! !   ΠΡΟΣΟΧΗ   ! ! ", Answer::kYes);
  Click(form, form.CmdOK);
  EXPECT_NE(test.prompter.boxes().back().lines[0].find("άλλαξε στον δίσκο"), std::string::npos);
  EXPECT_EQ(desk.questions.file.value().path, kStudies / "hotel.PCK");
}

// A program on the machine's own disk, where a link may lead to a safety copy.
TEST(SafetyCopyBehindALink, ComesBackAsTheStudyItIsOfAndStays) {
  const DiskBench place;
  RealDisk disk;
  TestDesk with;
  Workspace workspace(with.test.work_disk, TestBench::kProgramFolder, disk, place.library(),
                      with.test.clock);
  PipeList pipes = {{1, "0001.WPT", "", "STEEL", 10}};
  Workbench bench{with.test.study, workspace, pipes, with.test.prompter};
  Desk desk{bench,          with.navigator, with.sound,          with.viewer,
            with.clipboard, with.printer,   Separators{',', '.'}};
  desk.data_folder = place.studies();
  const fs::path origin = place.studies() / "own.PCK";
  PutSampleStudy(bench, "Παλιά");
  NoteOrigin(workspace, origin);
  with.test.study.origin_path = origin;
  ASSERT_TRUE(KeepSafetyCopyAnyway(bench, desk.safety_folders()));
  const fs::path copies = place.studies() / kSafetyFolder;
  const fs::path oldest = copies / SafetyCopyNames(disk, copies).front();
  const fs::path links = place.folder() / "links";
  ASSERT_TRUE(disk.MakeFolder(links).ok());
  fs::create_symlink(oldest / "own.PCK", links / "file.PCK");
  fs::create_directory_symlink(oldest, links / "copy");
  fs::create_directory_symlink(copies, links / "copies");
  fs::create_directory_symlink(links / "copy", links / "link");
  for (std::size_t i = 1; i < kSafetyCopies; ++i) {
    ASSERT_TRUE(KeepSafetyCopyAnyway(bench, desk.safety_folders()));
  }

  for (const fs::path& path :
       {oldest / "own.PCK", links / "file.PCK", links / "copy/own.PCK", links / "link/own.PCK",
        links / "copies" / oldest.filename() / "own.PCK"}) {
    SCOPED_TRACE(path);
    PutSampleStudy(bench, "Άλλη");
    ASSERT_TRUE(OpenChosen(desk, path, RecentList::kAdd));
    EXPECT_EQ(with.test.study.study_title, "Παλιά");
    EXPECT_TRUE(with.test.study.study_path.empty()) << "no save goes over the copy";
    EXPECT_EQ(with.test.study.origin_path, origin);
    EXPECT_FALSE(workspace.Exists(work_file::kRecentFiles));
    EXPECT_TRUE(disk.Exists(oldest / "own.PCK")) << "it is being opened";
  }
  for (const fs::path& path : {origin, copies / "own.PCK", links / "own.PCK"}) {
    EXPECT_TRUE(SafetyCopyFolder(disk, path).empty()) << path;
  }
}

}  // namespace
}  // namespace kalvo

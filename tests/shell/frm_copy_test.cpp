#include "shell/copying/frm_copy.h"

#include "shell/frm_main.h"
#include "tests/support/copying.h"
#include "tests/support/failing_disk.h"
#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kAskToReplace = "  ! !  ΠΡΟΣΟΧΗ  ! ! ";
constexpr const char* kWarning = " !!... ΠΡΟΣΟΧΗ ...!! ";

// Folders of studies in memory, a stick, and the form over them.
class CopyForm : public testing::Test {
 protected:
  CopyForm() {
    PutFolder(disk, "/home/user/PFILES",
              {{"B.PCK", std::string(7455, 'x')},
               {"B.STC", "x"},
               {"B.LQD", "x"},
               {"A.PCK", "x"},
               {"a.WNT", "x"},
               {"C.PCA", "x"},
               {"C.LQD", "x"},
               {"A.txt", "x"}});
    PutFolder(disk, "/home/user/PFILES/2026", {{"D.PCK", "x"}});
    PutFolder(disk, "/media/STICK/MELETES", {{"B.PCK", "old"}});
    desk.volumes.volumes = {
        {.kind = VolumeKind::kRemovable, .name = "CD", .place = "/media/CD", .writable = false},
        {.kind = VolumeKind::kRemovable,
         .name = "Μέσο",
         .place = "/media/STICK",
         .device = "/dev/sdb1"},
        {.kind = VolumeKind::kHome, .name = "Φάκελος χρήστη", .place = "/home/user"},
        {.kind = VolumeKind::kSystem, .name = "Όλοι", .place = "/"}};
    desk.desk.data_folder = "/home/user/PFILES";
    desk.desk.program_folder = "/opt/kalvo";
    form.Load();
  }
  [[nodiscard]] std::vector<std::string> SourceLines() const {
    std::vector<std::string> lines;
    for (const EntryLine& line : form.FileList1.lines()) {
      lines.push_back(line.name + line.text + "|" + line.detail);
    }
    return lines;
  }
  [[nodiscard]] std::vector<std::string> ReportLines() const {
    std::vector<std::string> lines;
    for (const EntryLine& line : form.Report.lines()) lines.push_back(line.name + ": " + line.text);
    return lines;
  }
  [[nodiscard]] const Box& LastBox() const { return desk.test.prompter.boxes().back(); }

  TestDesk desk;
  Disk& disk{desk.test.outer_disk};
  FrmCopy form{desk.desk};
};

TEST_F(CopyForm, BeginsWithTheStudiesAndTheFirstStickThatCanBeWritten) {
  EXPECT_EQ(form.title, "Αντιγραφή Αρχείων Μελετών, από ένα < Drive : Directory >, σε ένα άλλο");
  EXPECT_EQ(form.CboDrive1.entries[static_cast<std::size_t>(form.CboDrive1.selected)],
            "Φάκελος χρήστη");
  EXPECT_EQ(form.DirList1.lines(), (std::vector<std::string>{"user", "PFILES", "2026"}));
  EXPECT_EQ(form.DirList1.selected, 1);
  EXPECT_EQ(form.CboPattern.entries,
            (std::vector<std::string>{"Κλειστό Σύστημα : *.PCK", "Ανοικτό Σύστημα : *.PCA"}));
  EXPECT_EQ(form.CboPattern.selected, 0);
  EXPECT_EQ(SourceLines(), (std::vector<std::string>{"A.PCK  (1  Bytes)|.WNT",
                                                     "B.PCK  (7.455  Bytes)|.STC .LQD"}));
  EXPECT_EQ(form.LblCount.text, "2 μελέτες");
  EXPECT_EQ(form.CboDrive2.selected, 1);
  EXPECT_EQ(form.FileList2.lines().front().text, "Ο φάκελος δεν έχει μελέτες.");
  form.DirList2.Select(1);
  EXPECT_EQ(form.FileList2.lines().front().text, "  (3  Bytes)");

  form.CboPattern.Select(1);
  EXPECT_EQ(SourceLines(), std::vector<std::string>{"C.PCA  (1  Bytes)|.LQD"});
  EXPECT_EQ(desk.test.study.system_kind, SystemKind::kClosed) << "of the open study";
}

TEST_F(CopyForm, BeginsWithTheClosedSystemWhateverIsOpen) {
  TestDesk open(SystemKind::kOpen);
  FrmCopy other(open.desk);
  other.Load();
  EXPECT_EQ(other.CboPattern.selected, 0);
  EXPECT_EQ(other.CboDrive2.selected, -1) << "without any drive it still opens";
}

TEST_F(CopyForm, TicksByKeysAndCountsWhatIsTicked) {
  EXPECT_EQ(form.focus(), &form.FileList1);
  form.FileList1.MoveTo(1);
  EXPECT_TRUE(form.Press(Typed(U' ')));
  EXPECT_EQ(form.LblStudies.text, "1 μελέτη");
  EXPECT_EQ(form.LblFiles.text, "3 αρχεία");
  EXPECT_EQ(form.LblBytes.text, "7.457 Bytes");
  EXPECT_EQ(form.LblNeed.text, "χρειάζονται 0,0 MB");
  form.Press(Ctrl('A'));
  EXPECT_EQ(form.LblStudies.text, "2 μελέτες");
  EXPECT_EQ(form.LblFiles.text, "5 αρχεία");
  desk.volumes.room.free = 2 * 4096;
  form.DirList2.Select(1);
  EXPECT_EQ(form.LblNeed.tone, Tone::kAlarm);
  EXPECT_TRUE(form.RoomBar.too_much);
  form.Press(CtrlShift('A'));
  EXPECT_EQ(form.LblStudies.text, "0 μελέτες");
  EXPECT_EQ(form.LblNeed.tone, Tone::kPlain);
  form.Press(Typed(U' '));
  form.DirList1.Select(2);
  EXPECT_EQ(form.LblStudies.text, "0 μελέτες") << "ticks are of the folder on show";
}

TEST_F(CopyForm, KeepsTheDriveWhereTheOtherIsEmpty) {
  form.CboDrive2.Select(0);
  EXPECT_EQ(LastBox().title, kWarning);
  EXPECT_EQ(LastBox().lines, std::vector<std::string>{"... Το Drive είναι άδειο !!"});
  EXPECT_EQ(form.CboDrive2.selected, 1);
  EXPECT_EQ(form.DirList2.lines().front(), "STICK");
  form.CboDrive1.Select(1);
  EXPECT_EQ(form.DirList1.lines(), (std::vector<std::string>{"STICK", "MELETES"}));
  EXPECT_EQ(form.LblCount.text, "Ο φάκελος δεν έχει μελέτες.");
}

TEST_F(CopyForm, FollowsMediaThatComeAndGo) {
  desk.volumes.volumes.erase(desk.volumes.volumes.begin(), desk.volumes.volumes.begin() + 2);
  bool changed = false;
  for (int i = 0; i < 20; ++i) changed = form.Idle(1) || changed;
  EXPECT_TRUE(changed);
  EXPECT_EQ(form.CboDrive2.selected, -1) << "its stick was taken out";
  EXPECT_EQ(form.CboDrive1.selected, 0);
  EXPECT_EQ(form.CboDrive1.entries.size(), 2U);
}

TEST_F(CopyForm, CopiesAndLeavesAReportThatStays) {
  form.DirList2.Select(1);
  form.Press(Ctrl('A'));
  desk.test.prompter.Expect(kAskToReplace, Answer::kYes);
  form.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(LastBox().lines.front(), "... To Αρχείο < B.PCK >, υπάρχει ήδη ...");
  EXPECT_EQ(NamesIn(disk, "/media/STICK/MELETES"),
            (std::vector<std::string>{"A.PCK", "B.LQD", "B.PCK", "B.STC", "a.WNT"}));
  EXPECT_EQ(ReportLines(), (std::vector<std::string>{
                               "A.PCK: αντιγράφηκε · 2 αρχεία · χωρίς .LQD, λογίζεται μελέτη νερού",
                               "B.PCK: αντικατέστησε αυτήν που υπήρχε · 3 αρχεία"}));
  EXPECT_EQ(form.LblEnd.text, "αντιγράφηκαν 2 από 2");
  EXPECT_FALSE(form.Bar.visible || form.LblWait.visible);
  EXPECT_EQ(form.FileList2.count(), 2) << "the target shows what has come";
  form.DirList1.Select(0);
  EXPECT_EQ(form.Report.count(), 2);
  EXPECT_EQ(desk.test.study.study_path, "") << "no study was opened";
}

// A navigator whose user does something while the copying goes on.
class UsedMeanwhile : public NotedNavigator {
 public:
  void LetBreathe() override {
    if (meanwhile) meanwhile();
  }
  std::function<void()> meanwhile;
};

TEST_F(CopyForm, TellsHowFarItIsAndHearsEscAlone) {
  UsedMeanwhile navigator;
  Desk used{desk.test.bench, navigator,    desk.sound,          desk.viewer,
            desk.clipboard,  desk.printer, Separators{',', '.'}};
  used.volumes = &desk.volumes;
  used.data_folder = "/home/user/PFILES";
  FrmCopy busy(used);
  busy.Load();
  busy.Press(Ctrl('A'));
  std::vector<std::string> told;
  navigator.meanwhile = [&] {
    if (told.size() < 2) {
      EXPECT_EQ(busy.Report.lines()[1].text, "περιμένει · 3 αρχεία");
    }
    told.push_back(busy.LblFile.text + " " + busy.LblPercent.text);
    EXPECT_TRUE(busy.Bar.visible);
    EXPECT_EQ(busy.LblWait.text, "... Παρακαλώ, Περιμένετε ...");
    EXPECT_FALSE(busy.MayClose());
    EXPECT_TRUE(busy.Press(Ctrl(KeyCode::kEnter)));
    busy.Run(busy.CmdNone);
    busy.Run(busy.CmdBack);
    EXPECT_TRUE(busy.Press(Plain(KeyCode::kEscape)));
  };
  busy.Run(busy.CmdGo);
  ASSERT_EQ(told.size(), 3U) << "the study in hand was finished, no other begun";
  EXPECT_EQ(told[0], "Αντιγραφή του : a.WNT 0,00 %  από < 7.459 > ");
  EXPECT_EQ(told[1], "Αντιγραφή του : A.PCK 0,01 %  από < 7.459 > ");
  EXPECT_EQ(told[2], " 0,03 %  από < 7.459 > ");
  EXPECT_EQ(busy.Report.lines()[0].icon, "check");
  EXPECT_EQ(busy.Report.current(), 1) << "what did not arrive is in sight";
  EXPECT_EQ(busy.Report.lines()[1].text, "ΔΕΝ αντιγράφηκε · η αντιγραφή σταμάτησε πριν από αυτήν");
  EXPECT_EQ(busy.FileList1.Ticked().size(), 2U);
  EXPECT_TRUE(navigator.log.empty()) << "it was not closed";
  busy.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(navigator.log, std::vector<std::string>{"close FrmCopy"});
}

TEST_F(CopyForm, SaysWhyItDoesNotBeginAndWritesNothing) {
  const FolderImage before = ImageOf(disk, "/media/STICK/MELETES");
  form.DirList2.Select(1);
  form.Run(form.CmdGo);
  EXPECT_EQ(LastBox().lines, std::vector<std::string>{"Δεν έχετε επιλέξει αρχεία μελετών"});
  form.Press(Ctrl('A'));
  desk.volumes.room.free = 0;
  form.Run(form.CmdGo);
  EXPECT_EQ(LastBox().title, "  ! !   ΠΡΟΣΟΧΗ : Ανεπαρκής Χώρος  ! !  ");
  desk.volumes.room.capacity = 1;
  form.Run(form.CmdGo);
  EXPECT_EQ(LastBox().title, "  ! !   ΠΡΟΣΟΧΗ : Ανεπαρκής Συνολικός Χώρος Μέσου   ! !  ");
  desk.volumes.room = {.capacity = 1 << 30, .free = 1 << 30, .block = 512, .writable = false};
  form.Run(form.CmdGo);
  EXPECT_EQ(LastBox().title, kWarning);
  form.CboDrive2.Select(2);
  form.DirList2.Select(1);
  form.Run(form.CmdGo);
  EXPECT_NE(LastBox().lines.front().find("άλλον φάκελο"), std::string::npos);
  EXPECT_FALSE(form.Report.visible);
  EXPECT_EQ(ImageOf(disk, "/media/STICK/MELETES"), before);
}

TEST_F(CopyForm, SaysThatWhatIsUnsavedIsNotInTheCopy) {
  PutSampleStudy(desk.test.bench, "Α");
  desk.test.study.study_path = "/home/user/PFILES/A.PCK";
  desk.test.study.unsaved_changes = true;
  form.FileList1.Tick(0);
  form.Run(form.CmdGo);
  ASSERT_EQ(form.Report.count(), 2);
  EXPECT_EQ(ReportLines()[1],
            "A.PCK: είναι ανοικτή με αλλαγές που δεν έχουν σωθεί · ΔΕΝ είναι στο αντίγραφο");
  desk.test.study.unsaved_changes = false;
  form.Run(form.CmdGo);
  EXPECT_EQ(form.Report.count(), 1);
}

TEST_F(CopyForm, HandsAStickToTheDesktopsToolAfterAQuestionOnly) {
  desk.test.prompter.Expect("Format Drive /dev/sdb1", Answer::kNo);
  form.Run(form.CmdFormat);
  EXPECT_EQ(LastBox().style, box_style::kWarnDefaultNo);
  EXPECT_TRUE(desk.volumes.formatted.empty());
  desk.test.prompter.Expect("Format Drive /dev/sdb1", Answer::kYes);
  form.Run(form.CmdFormat);
  EXPECT_EQ(desk.volumes.formatted, std::vector<std::string>{"/dev/sdb1"});
  desk.volumes.no_tool = FileError{"gnome-disks", "Δεν υπάρχει"};
  desk.test.prompter.Expect("Format Drive /dev/sdb1", Answer::kYes);
  form.Run(form.CmdFormat);
  EXPECT_EQ(LastBox().lines.front(), "Δεν υπάρχει : gnome-disks");
  desk.volumes.no_tool.reset();
  desk.test.prompter.Expect("Format Drive /dev/sdb1", Answer::kYes);
  desk.test.prompter.before_box = [&] { desk.volumes.volumes.clear(); };
  form.Run(form.CmdFormat);
  desk.test.prompter.before_box = nullptr;
  EXPECT_EQ(desk.volumes.formatted.size(), 1U) << "another medium may bear that name now";
}

TEST_F(CopyForm, FormatsNoDriveThatIsNeeded) {
  const auto refused = [&](const char* why) {
    form.Run(form.CmdFormat);
    EXPECT_EQ(LastBox().lines.back(), why);
  };
  form.CboDrive2.Select(2);
  refused("Το Drive δεν είναι αφαιρούμενο μέσο");
  form.CboDrive2.Select(1);
  desk.desk.program_folder = "/media/STICK/kalvo";
  refused("Στο Drive βρίσκεται το πρόγραμμα");
  desk.desk.program_folder = "/opt/kalvo";
  desk.desk.data_folder = "/media/STICK/MELETES";
  refused("Στο Drive βρίσκονται οι μελέτες");
  desk.volumes.volumes[1].holds_system = true;
  FrmCopy other(desk.desk);
  other.Load();
  other.Run(other.CmdFormat);
  EXPECT_EQ(LastBox().lines.back(), "Στο Drive βρίσκεται το λειτουργικό σύστημα");
  EXPECT_TRUE(desk.volumes.formatted.empty());
}

TEST_F(CopyForm, OpensFromTheMainMenuWhereItsCommandIsShown) {
  FrmMain menu(desk.desk);
  menu.Load();
  menu.Derive();
  EXPECT_EQ(menu.CmdCopyFiles.caption, " Αντιγραφή Αρχείων Μελετών ");
  EXPECT_TRUE(menu.CmdCopyFiles.visible);
  desk.navigator.Expect(screen::kCopy, [] {});
  menu.Run(menu.CmdCopyFiles);
  menu.Press(Shift(KeyCode::kEscape));
  menu.Derive();
  EXPECT_FALSE(menu.CmdCopyFiles.visible);
}

}  // namespace
}  // namespace kalvo

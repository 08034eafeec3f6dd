#include "shell/frm_ff.h"

#include "shell/data_folder.h"
#include "tests/support/failing_disk.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

class DataFolderForm : public testing::Test {
 protected:
  DataFolderForm() {
    EXPECT_TRUE(disk.MakeFolder("/home/user/Μελέτες").ok());
    EXPECT_TRUE(disk.MakeFolder("/home/user/kalvo/PFILES").ok());
    desk.desk.data_folder = "/home/user/kalvo/PFILES";
    form.Load();
  }
  void Accept(std::string_view typed) {
    TypeInto(form, form.TxtFolder, typed);
    form.Press(Plain(KeyCode::kEnter));
  }
  [[nodiscard]] const Box& LastBox() const { return desk.test.prompter.boxes().back(); }
  [[nodiscard]] std::string Selected() const {
    return form.DirList.lines()[static_cast<std::size_t>(form.DirList.selected)];
  }

  TestDesk desk;
  Disk& disk{desk.test.outer_disk};
  FrmFF form{desk.desk};
};

TEST_F(DataFolderForm, MakesTheFolderTypedAndNamesIt) {
  EXPECT_EQ(form.TxtFolder.text, "/home/user/kalvo");
  Accept(" /mnt/έργα/2026/ ");
  EXPECT_EQ(desk.desk.data_folder, "/mnt/έργα/2026/PFILES");
  EXPECT_TRUE(disk.Exists("/mnt/έργα/2026/PFILES/ASCII"));
  EXPECT_EQ(desk.test.Bytes(work_file::kDataFolder), "/mnt/έργα/2026/PFILES/\n");
  EXPECT_EQ(desk.navigator.log, std::vector<std::string>{"close FrmFF"});
}

TEST_F(DataFolderForm, TheStudiesFolderItselfIsNoFolderForAnotherOne) {
  for (const char* typed : {"/home/user/kalvo/PFILES", "/home/user/kalvo/pfiles/"}) {
    Accept(typed);
    EXPECT_EQ(desk.desk.data_folder, "/home/user/kalvo/PFILES") << typed;
    EXPECT_FALSE(disk.Exists("/home/user/kalvo/PFILES/PFILES"));
  }
}

TEST_F(DataFolderForm, WhatIsNoFullPathOrCannotBeMadeKeepsTheFormOpen) {
  ASSERT_TRUE(disk.Write("/home/user/file", "x").ok());
  for (const char* typed : {"", "kalvo", "C:\\KALVO", "/home/user/file/below"}) {
    Accept(typed);
    EXPECT_EQ(LastBox().title, "Π Ρ Ο Σ Ο Χ Η") << typed;
    EXPECT_TRUE(form.TxtFolder.refused) << typed;
    EXPECT_EQ(form.focus(), &form.TxtFolder);
  }
  EXPECT_EQ(desk.test.prompter.boxes().size(), 4U);
  EXPECT_EQ(LastBox().lines[0],
            "Το Folder, που καταγράψατε, ΔΕΝ δημιουργήθηκε, διότι περιλαμβάνει μη αποδεκτούς "
            "χαρακτήρες");
  EXPECT_EQ(desk.desk.data_folder, "/home/user/kalvo/PFILES");
  EXPECT_TRUE(desk.navigator.log.empty());
}

TEST_F(DataFolderForm, AFolderThatCannotBeNamedIsToldAndNotTaken) {
  FailingDisk full(desk.test.work_disk);
  full.FailAfterBytes(3);
  Workspace workspace(full, TestBench::kProgramFolder, disk, TestBench::kLibraryFolder,
                      desk.test.clock);
  Workbench bench(desk.test.study, workspace, desk.test.pipes, desk.test.prompter);
  Desk on_full_disk{bench,          desk.navigator, desk.sound,          desk.viewer,
                    desk.clipboard, desk.printer,   desk.desk.separators};
  FrmFF in_full(on_full_disk);
  in_full.Load();
  TypeInto(in_full, in_full.TxtFolder, "/home/user/new");
  Click(in_full, in_full.Cmd_Go);
  EXPECT_EQ(LastBox().title, " !!... ΠΡΟΣΟΧΗ ...!! ");
  EXPECT_TRUE(on_full_disk.data_folder.empty());
  EXPECT_TRUE(desk.navigator.log.empty());
}

TEST_F(DataFolderForm, AFolderIsPickedFromTheListThatFollowsTheTypedPath) {
  EXPECT_EQ(Selected(), "kalvo");
  TypeInto(form, form.TxtFolder, "/home/user/nowhere/below");
  Click(form, form.Cmd_NewFolder);
  EXPECT_EQ(form.focus(), &form.DirList);
  EXPECT_EQ(form.TxtFolder.text, "/home/user") << "the nearest folder that is there";
  EXPECT_EQ(Joined(form.DirList.lines()), "/|home|user|kalvo|Μελέτες");
  form.DirList.Select(4);
  EXPECT_EQ(form.TxtFolder.text, "/home/user/Μελέτες");
  form.DirList.Select(0);
  EXPECT_EQ(form.TxtFolder.text, "/");
  TypeInto(form, form.TxtFolder, "Μελέτες");
  Click(form, form.Cmd_NewFolder);
  EXPECT_EQ(Selected(), "/") << "what is no full path begins at the root";
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(desk.desk.data_folder, "/home/user/kalvo/PFILES");
}

}  // namespace
}  // namespace kalvo

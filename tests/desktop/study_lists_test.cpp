#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListView>
#include <QTableView>
#include <QTest>

#include "tests/desktop/pictures.h"
#include "tests/desktop/shown_desk.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

/// A folder of studies in memory and the windows that list it.
class StudyLists : public testing::Test {
 protected:
  StudyLists() { desk.shown.data_folder = "/studies"; }
  void Put(const std::string& name, std::string_view title) {
    PutMain(desk.test, name, SampleRows(SystemKind::kClosed, title));
  }

  ShownDesk desk;
};

TEST_F(StudyLists, AreSearchedByTypingAndWalkedByTheMouse) {
  for (const char* folder : {"/studies/2025/Αύγουστος", "/studies/2026", "/studies/ASFALEIA"}) {
    ASSERT_TRUE(desk.test.outer_disk.MakeFolder(folder).ok());
  }
  Put("AIGLI.PCK", "Ξενοδοχείο «Αίγλη» – Ψυχρό νερό, πτέρυγα Α");
  Put("GRAFEIA.PCK", "Γραφεία – Κύκλωμα fan-coil ορόφου 2");
  Put("KAISAR.PCK", "Σχολείο Καισαριανής – Λεβητοστάσιο και στήλες");
  PutMain(desk.test, "2025/Αύγουστος/B.PCK", SampleRows(SystemKind::kClosed, "Βιοτεχνία"));
  desk.windows.Show(screen::kStudies);
  QWidget& window = *desk.windows.WindowOf(screen::kStudies);
  auto& studies = desk.Part<QListView>(screen::kStudies, "LstStudies");
  auto& search = desk.Part<QLineEdit>(screen::kStudies, "TxtSearch");
  KeepPicture(window, "frm-open-save");

  TypeText(studies, QStringLiteral("κ"));
  TypeText(search, QStringLiteral("αισ"));  // the first letter has moved the focus
  EXPECT_EQ(search.text(), QStringLiteral("καισ"));
  EXPECT_EQ(studies.model()->rowCount(), 1);
  KeepPicture(window, "frm-open-save-search");

  auto& folders = desk.Part<QListView>(screen::kStudies, "DirList");
  for (const int row : {2, 3}) {
    QTest::mouseClick(folders.viewport(), Qt::LeftButton, {},
                      folders.visualRect(folders.model()->index(row, 0)).center());
    EXPECT_EQ(folders.currentIndex().row(), row);
    ASSERT_EQ(folders.selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(folders.selectionModel()->selectedIndexes().front().row(), row);
  }
  EXPECT_EQ(studies.model()->rowCount(), 1);
  KeepPicture(window, "frm-open-save-deep");
}

TEST_F(StudyLists, ShowRecentFilesInATable) {
  desk.windows.Show(screen::kRecent);
  KeepPicture(*desk.windows.WindowOf(screen::kRecent), "frm-rec-files-empty");
  desk.windows.Close(screen::kRecent);
  std::string lines;
  for (const char* path :
       {"/home/user/Μελέτες/PFILES/Ξενοδοχείο Αίγλη.PCK", "/studies/GRAFEIA.PCK",
        "C:\\KALVO\\PFILES\\OLD.PCK",
        "/home/user/Μελέτες/2024/Συγκρότημα Κατοικιών Καισαριανής/Κτίριο Α/PFILES/KAISAR.PCK"}) {
    lines += path + std::string("\n");
  }
  ASSERT_TRUE(desk.test.workspace.Write(work_file::kRecentFiles, lines).ok());
  desk.windows.Show(screen::kRecent);
  auto& table = desk.Part<QTableView>(screen::kRecent, "fpSpread1");
  KeepPicture(*desk.windows.WindowOf(screen::kRecent), "frm-rec-files");
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                    table.visualRect(table.model()->index(2, 0)).center());
  desk.test.prompter.Expect("!!  ΠΡΟΣΟΧΗ  !!", Answer::kYes);
  QTest::keyClick(&table, Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(table.model()->rowCount(), 3);
  EXPECT_EQ(table.currentIndex().data().toString(), QStringLiteral("KAISAR.PCK"));
}

TEST_F(StudyLists, ShowTheFoldersBelowWhichStudiesCanBeKept) {
  for (const char* folder : {"/studies/PFILES", "/home/user/Μελέτες/2025", "/home/user/Έγγραφα"}) {
    ASSERT_TRUE(desk.test.outer_disk.MakeFolder(folder).ok());
  }
  desk.shown.data_folder = "/home/user/PFILES";
  desk.windows.Show(screen::kDataFolder);
  KeepPicture(*desk.windows.WindowOf(screen::kDataFolder), "frm-ff");
  auto& folders = desk.Part<QListView>(screen::kDataFolder, "DirList");
  QTest::mouseClick(folders.viewport(), Qt::LeftButton, {},
                    folders.visualRect(folders.model()->index(4, 0)).center());
  EXPECT_EQ(desk.Part<QLineEdit>(screen::kDataFolder, "TxtFolder").text(),
            QStringLiteral("/home/user/Μελέτες"));
  QTest::keyClick(&folders, Qt::Key_Return);
  EXPECT_EQ(desk.windows.WindowOf(screen::kDataFolder), nullptr);
  EXPECT_EQ(desk.shown.data_folder, "/home/user/Μελέτες/PFILES");
}

}  // namespace
}  // namespace kalvo

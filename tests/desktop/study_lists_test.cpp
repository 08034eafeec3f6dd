#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListView>
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

}  // namespace
}  // namespace kalvo

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <stdexcept>
#include <utility>

#include "desktop/qt_text.h"
#include "desktop/windows.h"
#include "tests/desktop/pictures.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

/// Windows over a network of 120 sections with an emitter at the end.
struct NetworkDesk : TestDesk {
  NetworkDesk() {
    windows.SetDesk(shown);
    std::vector<std::string> lines = {"ANT/1 10m plant"};
    for (int i = 1; i < 119; ++i) {
      lines.push_back(std::to_string(i) + "/" + std::to_string(i + 1) + " 3m");
    }
    lines.emplace_back("119/ANT 5m soma 1200 l/h 300mm");
    test.PutNetwork({lines.begin(), lines.end()});
    test.study.plant_section = 1;
    test.study.MeanTemp = 12.5F;
    test.study.MeanVel = 0.75F;
  }
  template <typename Widget>
  Widget& Part(std::string_view screen, const char* name) {
    return *windows.WindowOf(screen)->findChild<Widget*>(QString::fromLatin1(name));
  }
  // Shown and in front: only then does the focus move.
  void Open(std::string_view screen) {
    windows.Show(screen);
    ASSERT_TRUE(QTest::qWaitForWindowActive(windows.WindowOf(screen)));
  }
  void Keep(std::string_view screen) {
    KeepPicture(*windows.WindowOf(screen), QStringLiteral("network-") + ToQt(screen));
  }
  Windows windows{QString()};
  Desk shown{test.bench, windows, sound, viewer, clipboard, printer, Separators{',', '.'}};
};

TEST(GeneralDataWindow, ADoubleClickSelectsANumberWhole) {
  NetworkDesk desk;
  desk.Open(screen::kGeneralData);
  auto& temperature = desk.Part<QLineEdit>(screen::kGeneralData, "Text4");
  ASSERT_EQ(temperature.text(), QStringLiteral("12,5"));
  QTest::mouseDClick(&temperature, Qt::LeftButton, {}, {6, temperature.height() / 2});
  EXPECT_EQ(temperature.selectedText(), QStringLiteral("12,5"));
}

TEST(GeneralDataWindow, OpensTheFieldOfThePlantWithItsOption) {
  NetworkDesk desk;
  desk.Open(screen::kGeneralData);
  desk.Keep(screen::kGeneralData);
  auto& option = desk.Part<QCheckBox>(screen::kGeneralData, "ChkChiller");
  auto& plant = desk.Part<QLineEdit>(screen::kGeneralData, "Text8");
  EXPECT_TRUE(option.isChecked());
  option.setFocus();
  QTest::keyClick(&option, Qt::Key_Return);
  EXPECT_FALSE(option.isChecked());
  EXPECT_FALSE(plant.isEnabled());
  QTest::keyClick(&option, Qt::Key_Return);
  EXPECT_TRUE(plant.hasFocus());
  QTest::keyClick(&plant, Qt::Key_Escape);
  EXPECT_EQ(desk.windows.WindowOf(screen::kGeneralData), nullptr);
}

TEST(GoToWindow, GoesToTheSectionTyped) {
  NetworkDesk desk;
  desk.Open(screen::kGoTo);
  desk.Keep(screen::kGoTo);
  auto& list = desk.Part<QWidget>(screen::kGoTo, "LstSections");
  QTest::keyClicks(&list, QStringLiteral("117"));
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(desk.test.study.CurrentRow, 117);
  EXPECT_EQ(desk.windows.WindowOf(screen::kGoTo), nullptr);
}

TEST(CurrentStudyWindow, TellsOfTheStudyAndChecksItsNames) {
  NetworkDesk desk;
  desk.test.study.study_short_name = "Κτίριο Α.PCK";
  desk.test.study.study_folder =
      "/home/user/Μελέτες/Υδραυλικά/2024/Συγκρότημα Κατοικιών/Κτίριο Α/Τελική Υποβολή/Κλιματισμός";
  desk.Open(screen::kCurrentStudy);
  desk.Keep(screen::kCurrentStudy);
  desk.Part<QPushButton>(screen::kCurrentStudy, "Cmd_Names").click();
  EXPECT_EQ(desk.test.prompter.codes(), std::vector{23});
}

TEST(MissingValuesWindow, ListsWhatIsMissing) {
  NetworkDesk desk;
  desk.shown.state_folder = "/state";
  ASSERT_TRUE(desk.test.workspace
                  .Write(work_file::kErrors,
                         "Τμήμα < 2 > : Λείπει το ΜΗΚΟΣ\n"
                         "Τμήμα < 5 > : Λείπει ο ΤΕΛΙΚΟΣ ΚΟΜΒΟΣ\n")
                  .ok());
  desk.Open(screen::kMissingValues);
  EXPECT_EQ(desk.Part<QListView>(screen::kMissingValues, "LstERR").model()->rowCount(), 2);
  desk.Keep(screen::kMissingValues);
}

TEST(AnyWindow, TellsOfAnActionThatThrewAndGoesOn) {
  struct NotedFaults : FaultLog {
    void Note(const FaultNote& note) override { texts.push_back(note.text); }
    std::vector<std::string> texts;
  } log;
  NetworkDesk desk;
  desk.test.bench.fault_log = &log;
  desk.Open(screen::kCurrentStudy);
  auto& command = desk.windows.FormOf(screen::kCurrentStudy)->Get<Command>("Cmd_Names");
  const auto action = std::exchange(command.action, [] { throw std::out_of_range("map::at"); });
  desk.Part<QPushButton>(screen::kCurrentStudy, "Cmd_Names").click();
  EXPECT_EQ(log.texts, std::vector<std::string>{"map::at"});
  ASSERT_EQ(desk.test.prompter.boxes().size(), 1U);
  EXPECT_EQ(desk.test.prompter.boxes()[0].lines.back(),
            "... Σφάλμα του προγράμματος < map::at > ...");
  command.action = action;
  desk.Part<QPushButton>(screen::kCurrentStudy, "Cmd_Names").click();
  EXPECT_EQ(desk.test.prompter.codes(), std::vector{23});
}

}  // namespace
}  // namespace kalvo

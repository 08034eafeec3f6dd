#include "desktop/screens.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>
#include <memory>
#include <optional>
#include <set>

#include "desktop/qt_text.h"
#include "desktop/theme.h"
#include "entry/general/frm_liquid.h"
#include "results/diameter_roads.h"
#include "study/codepage.h"
#include "study/designer_names.h"
#include "study/fluid_library.h"
#include "study/recent_files.h"
#include "study/safety_copies.h"
#include "study/study_reset.h"
#include "tests/desktop/calculated_desk.h"
#include "tests/desktop/pictures.h"
#include "tests/desktop/screen_samples.h"
#include "tests/desktop/shown_desk.h"
#include "tests/support/tee_counters_in_memory.h"

namespace kalvo {
namespace {

TEST(AllScreens, EveryNameOfAFormHasItsPartnerInTheWindow) {
  for (const Screen& screen : Screens()) {
    ShownDesk desk;
    const auto form = screen.make(desk.shown);
    QWidget window;
    screen.set_up(window);
    const Binder binder(*form, window, {[] {}, [] {}});
    EXPECT_EQ(binder.missing().join(QLatin1Char(' ')).toStdString(), "") << screen.name;
  }
}

// The letters that act with Alt in a window, each as its key.
std::vector<std::string> LettersWithAlt(const Form& form, const QWidget& window) {
  QStringList captions;
  for (const auto* button : window.findChildren<QAbstractButton*>()) captions << button->text();
  for (const auto* card : window.findChildren<QGroupBox*>()) captions << card->title();
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (label->buddy() != nullptr) captions << label->text();
  }
  for (const auto* bar : window.findChildren<QMenuBar*>()) {
    for (const QAction* menu : bar->actions()) captions << menu->text();
  }
  std::vector<std::string> letters;
  const auto add = [&letters](char32_t letter) {
    AppendUtf8(letters.emplace_back(), LatinOnSameKey(letter));
  };
  for (const QString& caption : captions) {
    const QKeySequence shortcut = QKeySequence::mnemonic(caption);
    if (!shortcut.isEmpty()) add(static_cast<char32_t>(shortcut[0].key()));
  }
  for (const Control* part : form.controls()) {
    const auto* command = dynamic_cast<const Command*>(part);
    if (command == nullptr) continue;
    for (const Key& key : command->keys) {
      if (key.alt && !key.ctrl && key.code == KeyCode::kCharacter) add(key.character);
    }
  }
  return letters;
}

TEST(AllScreens, ALetterWithAltMeansOneThingInAWindow) {
  std::size_t found = 0;
  for (const Screen& screen : Screens()) {
    ShownDesk desk;
    const auto form = screen.make(desk.shown);
    QWidget window;
    screen.set_up(window);
    Binder binder(*form, window, {[] {}, [] {}});
    binder.Paint();
    const std::vector<std::string> letters = LettersWithAlt(*form, window);
    found += letters.size();
    const std::set<std::string> once(letters.begin(), letters.end());
    EXPECT_EQ(once.size(), letters.size()) << screen.name << ": " << Joined(letters);
  }
  EXPECT_GE(found, 8U);
}

TEST(AllScreens, EveryOperableWidgetHasAName) {
  TeeCountersInMemory counters;
  for (const Screen& screen : Screens()) {
    ShownDesk desk;
    desk.shown.screens.tee_counters = &counters;
    desk.windows.Show(screen.name);
    QWidget* window = desk.windows.WindowOf(screen.name);
    if (window == nullptr) continue;
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
      const bool operable = widget->focusPolicy() != Qt::NoFocus &&
                            !widget->objectName().startsWith(QStringLiteral("qt_")) &&
                            !widget->objectName().isEmpty() && widget->isVisible();
      if (operable && qobject_cast<const QScrollArea*>(widget) == nullptr) {
        EXPECT_NE(widget->accessibleName().toStdString(), "")
            << screen.name << " " << widget->objectName().toStdString();
      }
    }
  }
}

// The program's look while a test runs; the light one stands again at its end.
struct Look {
  explicit Look(const Theme& theme) { ApplyTheme(*qApp, theme); }
  ~Look() { ApplyTheme(*qApp, kLightTheme); }
  Look(const Look&) = delete;
  Look& operator=(const Look&) = delete;
};

class AllScreensIn : public testing::TestWithParam<bool> {
 protected:
  void SetUp() override { look_.emplace(GetParam() ? kDarkTheme : kLightTheme); }
  [[nodiscard]] static QString PictureName(std::string_view screen) {
    return ToQt(screen) + (GetParam() ? "-dark" : "");
  }

 private:
  std::optional<Look> look_;
};

// A fluid that the library lacks, and that the study came without.
void PutForeignFluid(Workbench& bench) {
  FluidRow fluid;
  fluid.name = FixedText<50>::FromUtf8("Διάλυμα 30% Αιθυλενογλυκόλης σε Νερό");
  fluid.mean_temperature = -5;
  fluid.density = 1045.5F;
  fluid.viscosity = 3.2F;
  ASSERT_TRUE(WriteStudyFluid(bench, fluid).ok());
  bench.study.fluid_name = fluid.name.Utf8();
  bench.study.fluid_assumed = true;
}

// What the windows tell of besides the study: older files, a list of faults, rows left over.
void Surround(CalculatedDesk& desk) {
  Workspace& workspace = *desk.study.workspace;
  desk.desk.data_folder = desk.desk.state_folder = testing::TempDir();
  ASSERT_TRUE(KeepSafetyCopyAnyway(desk.desk.bench, desk.desk.safety_folders()));
  desk.desk.data_folder = Samples();
  desk.desk.installed_folder = std::filesystem::path(KALVO_LIBRARY_DIR).parent_path();
  desk.desk.questions.manual = ManualPlace{"02-fancoil", "το-φύλλο-των-τμημάτων"};
  desk.desk.version = "Έκδοση 0.1.0";
  desk.desk.questions.offered = {desk.study.study.SectionCount, "Ξενοδοχείο", "/studies/hotel.PCK",
                                 "25/11/2026, 10:30:00"};
  ASSERT_TRUE(WriteDesigners(workspace, {{"Κ. Παπαδόπουλος", "Ά. Ωμέγας & Συνεργάτες"}, "x"}).ok());
  desk.desk.screens.CurrentDesigner = "Κ. Παπαδόπουλος";
  desk.desk.screens.AccessPassword = "x";
  desk.desk.questions.password_use = PasswordUse::kChange;
  for (const char* name : {"single.PCK", "fancoil.PCK", "hotel.PCK"}) {
    ASSERT_TRUE(AddRecentFile(workspace, Samples() / name).ok());
  }
  ASSERT_TRUE(workspace
                  .Write(work_file::kErrors,
                         ToCodePage("Το Τμήμα 3 έχει ανύπαρκτο Τελικό Κόμβο !!\n"
                                    "Το Τμήμα 3 και το Τμήμα 9 έχουν το ίδιο όνομα !!\n"))
                  .ok());
}

TEST_P(AllScreensIn, ShowACalculatedStudyWhole) {
  for (const Screen& screen : Screens()) {
    CalculatedDesk desk(Samples() / "hotel.PCK");
    if (screen.name == screen::kComparison) {
      desk.Open(screen::kResultsSheet, {1352, 904});
      ASSERT_EQ(EnlargeThree(desk), RunEnd::kCalculated);
    }
    Surround(desk);
    // The drops that the sheet explains are of the fluid that the rows were calculated with.
    if (screen.name != screen::kResultsSheet) PutForeignFluid(desk.study.bench);
    TeeCountersInMemory counters;
    counters.counts[1] = "1";
    if (screen.name == screen::kFormTees) counters.table = TeeTable::kForm;
    desk.desk.screens.tee_counters = &counters;
    PreviewedSample preview;
    preview.Attach(desk.desk);
    desk.study.study.recovery = true;  // the menu leaves the study as it is
    CopiedSamples copied(desk);
    if (screen.name == screen::kOneDiameter) {
      desk.Open(screen::kResultsSheet, {1352, 904}).findChild<QPushButton*>("CmdChD")->click();
    }
    if (screen.name == screen::kManyDiameters) {
      desk.Open(screen::kResultsSheet, {1352, 904});
      ASSERT_TRUE(TakeRoad(desk.desk, ChangeRoad::kButton));
    }
    QWidget design;
    screen.set_up(design);
    QWidget& window = desk.Open(screen.name, design.size());
    if (screen.name == screen::kManyDiameters) UseManyDiameters(desk);
    if (screen.name == screen::kCopy) copied.Use(PictureName(screen.name) + "-running");
    SCOPED_TRACE(screen.name);
    ExpectNothingClipped(window);
    KeepPicture(window, PictureName(screen.name));
    window.resize(window.minimumSize());
    QApplication::processEvents();
    SCOPED_TRACE("at its least size");
    KeepPicture(window, PictureName(screen.name) + "-least");
    ExpectNothingClipped(window);
  }
}

TEST_P(AllScreensIn, ShowTheMenuBeforeThereIsAStudy) {
  CalculatedDesk desk(Samples() / "hotel.PCK");
  Surround(desk);
  PutForeignFluid(desk.study.bench);
  ResetStudy(desk.study.bench);
  QWidget& menu = desk.Open(screen::kMain, {1244, 780});
  ExpectNothingClipped(menu);
  EXPECT_EQ(menu.findChild<QLabel*>("LblHead")->text().toStdString(), "—");
  KeepPicture(menu, PictureName("FrmMain-empty"));
}

INSTANTIATE_TEST_SUITE_P(Looks, AllScreensIn, testing::Bool());

// A box that serves events, as one on a screen does.
class ServedBox : public YesToAll {
 public:
  Answer Ask(const Box& /*box*/) override {
    QTest::qWait(200);
    return Answer::kYes;
  }
};

TEST(AllScreens, OneThatClosesItselfOutlivesTheActionThatTells) {
  CalculatedDesk desk(KALVO_SAMPLES_DIR "/hotel.PCK");
  ServedBox prompter;
  Workbench bench{desk.study.study, *desk.study.workspace, desk.study.pipes, prompter};
  Desk told{bench,          desk.windows, desk.sound,          desk.viewer,
            desk.clipboard, desk.printer, Separators{',', '.'}};
  desk.windows.SetDesk(told);
  QWidget& sheet = desk.Open(screen::kResultsSheet, {1352, 904});
  ASSERT_TRUE(desk.study.workspace->Write(work_file::kRows, "odd").ok());
  sheet.findChild<QPushButton*>("SSCommand1")->click();
  EXPECT_FALSE(desk.windows.IsOpen(screen::kResultsSheet));
  EXPECT_TRUE(desk.windows.IsOpen(screen::kResults));
}

TEST(MainWindow, GivesTheKeysBackToWhereTheyWereAfterTheTitle) {
  CalculatedDesk desk(KALVO_SAMPLES_DIR "/hotel.PCK");
  desk.study.study.recovery = true;
  QWidget& menu = desk.Open(screen::kMain, {1244, 766});
  ASSERT_TRUE(QTest::qWaitForWindowActive(&menu));
  menu.findChild<QPushButton*>("CmdLiquid")->setFocus();
  QTest::keyClick(menu.focusWidget(), Qt::Key_F2);
  EXPECT_EQ(menu.focusWidget()->objectName().toStdString(), "TxtThema");
  TypeText(*menu.focusWidget(), QStringLiteral("Νέο"));
  QTest::keyClick(menu.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(menu.focusWidget()->objectName().toStdString(), "CmdLiquid");
  const auto* unsaved = menu.findChild<QLabel*>("LblUnsaved");
  EXPECT_TRUE(unsaved->isVisible());
  EXPECT_EQ(unsaved->property("tone").toString().toStdString(), "warn");
}

TEST(MainWindow, TakesAPastedTitleOnOneLineAndSaysWhyOneIsRefused) {
  CalculatedDesk desk(KALVO_SAMPLES_DIR "/hotel.PCK");
  desk.study.study.recovery = true;
  QWidget& menu = desk.Open(screen::kMain, {1244, 766});
  ASSERT_TRUE(QTest::qWaitForWindowActive(&menu));
  QTest::keyClick(menu.focusWidget(), Qt::Key_F2);
  auto& title = dynamic_cast<QLineEdit&>(*menu.focusWidget());
  const auto paste = [&title](const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&title, Qt::Key_V, Qt::ControlModifier);
  };
  const QString before = title.text();
  paste("\n" + before + "\nΒ\n");  // over what is selected, which begins alike
  EXPECT_EQ(title.text(), before + " Β");
  title.setCursorPosition(1);
  paste("\nxy\n");
  EXPECT_EQ(title.text(), before.left(1) + "xy" + before.mid(1) + " Β");
  EXPECT_EQ(title.cursorPosition(), 3);
  TypeText(title, QStringLiteral("ι\u0301"));
  EXPECT_EQ(title.text().mid(3, 1), QStringLiteral("ί"));

  const QString taken = title.text();
  TypeText(title, QStringLiteral("水"));
  EXPECT_EQ(title.text(), taken);
  EXPECT_EQ(title.property("state").toString(), "refused");
  EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("水"))) << "shown and read aloud";
  EXPECT_EQ(title.accessibleDescription(), QToolTip::text());
  KeepPicture(menu, "FrmMain-refused");
  TypeText(title, QStringLiteral("z"));
  EXPECT_EQ(title.property("state").toString(), "");
}

TEST(MainWindow, KeepsItsPipesUnderTheWheel) {
  CalculatedDesk desk(KALVO_SAMPLES_DIR "/hotel.PCK");
  desk.study.study.recovery = true;
  const QWidget& menu = desk.Open(screen::kMain, {1244, 766});
  auto* pipes = menu.findChild<QComboBox*>("Cbo_PipeKind");
  const int before = pipes->currentIndex();
  QWheelEvent notch({5, 5}, pipes->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {},
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(pipes, &notch);
  EXPECT_EQ(pipes->currentIndex(), before);
}

TEST(KindWindow, ChoosesByArrowsAndGoesOnWithWhatIsChosen) {
  ShownDesk desk;
  desk.windows.Show(screen::kKind);
  QWidget* window = desk.windows.WindowOf(screen::kKind);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  QTest::keyClick(window->focusWidget(), Qt::Key_Right);
  EXPECT_EQ(window->focusWidget()->objectName().toStdString(), "SSOption2");
  EXPECT_TRUE(desk.Part<QRadioButton>(screen::kKind, "SSOption2").isChecked());
  EXPECT_EQ(desk.test.study.system_kind, SystemKind::kOpen);
}

TEST(TeeWindow, IsUsedByItsKeysAndButtonsAndShowsWhatTheyDo) {
  ShownDesk desk;
  TeeCountersInMemory counters;
  desk.shown.screens.tee_counters = &counters;
  desk.windows.Show(screen::kTees);
  QWidget* window = desk.windows.WindowOf(screen::kTees);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  const auto& turned = desk.Part<QLabel>(screen::kTees, "LblDiaTee");
  const auto& through = desk.Part<QLabel>(screen::kTees, "LblDieTee");
  TypeText(*window->focusWidget(), QStringLiteral("ψc"));
  EXPECT_EQ(turned.text(), "2") << "the key C, Greek and Latin";
  auto& cross = desk.Part<QPushButton>(screen::kTees, "Cmd_M");
  cross.click();
  EXPECT_EQ(through.text(), "2");
  EXPECT_EQ(cross.accessibleName(), "M: αριστερό σκέλος, ροή προς τον κόμβο, Διέλευση +2");
  EXPECT_EQ(desk.Part<QPushButton>(screen::kTees, "Cmd_O").property("tone").toString(), "quiet");
  EXPECT_EQ(desk.Part<QWidget>(screen::kTees, "PicX2").accessibleName(), "Σταυρός");
  QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(desk.windows.WindowOf(screen::kTees), nullptr);
  EXPECT_EQ(counters.brought, 1);
}

TEST(TeeWindow, HasRoomForLongNamesAndLargeCounts) {
  ShownDesk desk;
  TeeCountersInMemory counters;
  counters.section = "Τμήμα 1234 : ΑΝΤ12345/ΑΝΤ12346";
  counters.counts = {"32767", "32767", "32767", "32767"};
  desk.shown.screens.tee_counters = &counters;
  desk.windows.Show(screen::kTees);
  QWidget& window = *desk.windows.WindowOf(screen::kTees);
  window.resize(window.minimumSize());
  auto& letter = desk.Part<QPushButton>(screen::kTees, "Cmd_C");
  letter.setFocus();
  letter.click();
  QApplication::processEvents();
  EXPECT_EQ(desk.Part<QLabel>(screen::kTees, "LblHint").property("tone").toString(), "alarm");
  ExpectNothingClipped(window);
  KeepPicture(window, "FrmTauCross_S-refused");
}

TEST(TeeWindow, ClosesByItselfWithoutCounters) {
  ShownDesk desk;
  desk.windows.Show(screen::kTees);
  EXPECT_FALSE(desk.windows.IsOpen(screen::kTees));
}

TEST(MenuOfAField, IsGreek) {
  ShownDesk desk;
  desk.windows.Show(screen::kFiles);
  auto& field = desk.Part<QLineEdit>(screen::kFiles, "TxtFileName");
  const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
  std::set<QKeySequence> letters;
  for (const QAction* action : menu->actions()) {
    const QString caption = action->text().section(QLatin1Char('\t'), 0, 0);
    EXPECT_FALSE(caption.contains(QRegularExpression("[A-Za-z]"))) << caption.toStdString();
    const QKeySequence letter = QKeySequence::mnemonic(caption);
    EXPECT_TRUE(letter.isEmpty() || letters.insert(letter).second) << caption.toStdString();
  }
}

TEST(FluidWindow, IsUsedAsOnAScreen) {
  ShownDesk desk;
  desk.windows.Show(screen::kLiquid);
  auto& list = desk.Part<QListView>(screen::kLiquid, "LstLiquid");
  auto& density = desk.Part<QLineEdit>(screen::kLiquid, "TxtDensity");
  EXPECT_EQ(list.model()->rowCount(), 2);
  EXPECT_FALSE(density.isEnabled());
  list.setCurrentIndex(list.model()->index(1, 0));
  EXPECT_TRUE(density.isEnabled());
  EXPECT_EQ(density.text(), QStringLiteral("1260"));

  ASSERT_TRUE(QTest::qWaitForWindowActive(density.window()));
  density.setFocus();
  density.selectAll();
  TypeText(density, QStringLiteral("10α5,5"));
  EXPECT_EQ(density.text(), QStringLiteral("105,5")) << "a letter is no key of this field";
  density.setCursorPosition(0);
  TypeText(density, QStringLiteral("."));
  EXPECT_EQ(density.text(), QStringLiteral(",105,5"));
  EXPECT_EQ(density.cursorPosition(), 1);
  QTest::keyClick(&density, Qt::Key_Backspace);
  KeepPicture(*desk.windows.WindowOf(screen::kLiquid), "frm-liquid");

  // Ctrl+S on a Greek layout arrives as Ctrl+Σ.
  desk.test.prompter.Expect("  ! !   ΠΡΟΣΟΧΗ   ! ! ", Answer::kNo);
  QKeyEvent save(QEvent::KeyPress, QChar(u'Σ').unicode(), Qt::ControlModifier, QString());
  QCoreApplication::sendEvent(&density, &save);

  // Where the user stays with what was typed, the list goes on to mark that fluid.
  desk.test.prompter.Expect("  ! !   ΠΡΟΣΟΧΗ   ! ! ", Answer::kCancel);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                    list.visualRect(list.model()->index(0, 0)).center());
  QApplication::processEvents();
  EXPECT_EQ(list.currentIndex().row(), 1);
  ASSERT_EQ(list.selectionModel()->selectedIndexes().size(), 1);
  EXPECT_EQ(list.selectionModel()->selectedIndexes().front().row(), 1);

  desk.test.prompter.Expect("  ! !   ΠΡΟΣΟΧΗ   ! ! ", Answer::kNo);
  desk.Part<QPushButton>(screen::kLiquid, "CmdCancel").click();
  EXPECT_EQ(desk.windows.WindowOf(screen::kLiquid), nullptr);
}

}  // namespace
}  // namespace kalvo

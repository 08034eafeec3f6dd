#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include "desktop/qt_text.h"
#include "study/designer_names.h"
#include "tests/desktop/calculated_desk.h"
#include "tests/desktop/pictures.h"
#include "tests/desktop/shown_desk.h"

namespace kalvo {
namespace {

struct DesignersShown : ShownDesk {
  DesignersShown() {
    EXPECT_TRUE(WriteDesigners(test.workspace, {{"Άννα", std::string(78, 'W')}, "κλειδί"}).ok());
    shown.options.designer = std::string(78, 'W');
  }
  QWidget& Open(std::string_view screen) {
    windows.Show(screen);
    QWidget& window = *windows.WindowOf(screen);
    window.resize(window.minimumSize());
    QApplication::processEvents();
    return window;
  }
};

TEST(DesignersWindow, HasRoomForANameThatIsTypedAtItsLeastSize) {
  DesignersShown desk;
  QWidget& window = desk.Open(screen::kDesigners);
  desk.Part<QPushButton>(screen::kDesigners, "Cmd_COR").click();
  QApplication::processEvents();
  ExpectNothingClipped(window);
  KeepPicture(window, "FrmCLient-typing");
  EXPECT_GE(desk.Part<QListView>(screen::kDesigners, "Lst_Names").height(), 84);
  auto& field = desk.Part<QLineEdit>(screen::kDesigners, "Txt_Client");
  EXPECT_EQ(window.focusWidget(), &field);
  EXPECT_EQ(field.text().size(), 78);
  TypeText(field, "Ζωή");
  EXPECT_EQ(desk.Part<QLabel>(screen::kDesigners, "LblCount").text().toStdString(),
            "< 3 > Χαρακτήρες");
}

TEST(DesignersWindow, ShowsPasswordsAsDots) {
  DesignersShown desk;
  desk.shown.questions.password_use = PasswordUse::kChange;
  desk.Open(screen::kDesigners);
  desk.Open(screen::kListPassword);
  for (const auto& [screen, name] : {std::pair{screen::kDesigners, "Txt_Pass"},
                                     {screen::kListPassword, "TxtOld"},
                                     {screen::kListPassword, "TxtPass"},
                                     {screen::kListPassword, "TxtPassOK"}}) {
    auto& field = desk.Part<QLineEdit>(screen, name);
    ASSERT_TRUE(field.isVisible()) << name;
    TypeText(field, "κωδικός");
    EXPECT_EQ(field.text().toStdString(), "κωδικός");
    EXPECT_EQ(field.echoMode(), QLineEdit::Password) << name;
  }
  ExpectNothingClipped(*desk.windows.WindowOf(screen::kListPassword));
}

}  // namespace
}  // namespace kalvo

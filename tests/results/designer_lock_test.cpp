#include "results/designer/designer_lock.h"

#include <gtest/gtest.h>

#include "results/designer/designer_name.h"
#include "tests/results/designer_desk.h"

namespace kalvo {
namespace {

struct PrintLock : DesignerDesk, ::testing::Test {
  /// The user will be asked for the password, types that one and gives up if it is wrong.
  void WillType(std::string_view password) {
    InPasswordForm([password](FrmCLPass& pass) {
      EXPECT_FALSE(pass.TxtPass.visible);
      EXPECT_FALSE(pass.TxtPassOK.visible);
      TypeInto(pass, pass.TxtOld, password);
      pass.Press(Plain(KeyCode::kEnter));
      pass.Press(Plain(KeyCode::kEscape));
    });
  }
  bool MayPrintWith(std::string_view password) {
    WillType(password);
    return MayPrintThroughProgram(desk);
  }
};

TEST_F(PrintLock, IsOpenWithoutAFileOrAPassword) {
  EXPECT_TRUE(MayPrintThroughProgram(desk));
  ASSERT_TRUE(test.workspace.Write(work_file::kDesigners, "").ok());
  EXPECT_TRUE(MayPrintThroughProgram(desk));
  PutList({{"Άννα"}, ""});
  EXPECT_TRUE(MayPrintThroughProgram(desk)) << "whoever the designer is";
  EXPECT_TRUE(test.prompter.boxes().empty());
}

TEST_F(PrintLock, OpensToAListedDesignerWithThePassword) {
  PutList({{"Άννα", "Βασίλης"}, "κλειδί"});
  desk.screens.CurrentDesigner = "Βασίλης";
  EXPECT_TRUE(MayPrintWith("κλειδί"));
  EXPECT_TRUE(test.prompter.boxes().empty());
  EXPECT_FALSE(MayPrintWith(""));
  EXPECT_EQ(LastBox(), "!! ΔΕΝ έχετε δώσει το Password !!");
  EXPECT_FALSE(MayPrintWith("Κλειδί"));
  EXPECT_EQ(LastBox(), "!! Το Password ΔΕΝ ισχύει !!");
  desk.screens.CurrentDesigner = "Γιώργος";
  test.prompter.Expect("  ! !   ΠΡΟΣΟΧΗ   ! ! ", Answer::kNo);
  EXPECT_FALSE(MayPrintWith("κλειδί"));
  EXPECT_NE(LastBox().find("< Γιώργος >, ΔΕΝ υπάρχει στη Λίστα"), std::string::npos);
  test.prompter.Expect("  ! !   ΠΡΟΣΟΧΗ   ! ! ", Answer::kYes);
  WillType("κλειδί");
  navigator.Expect(screen::kDesigners, [this] { desk.screens.CurrentDesigner = "Άννα"; });
  EXPECT_TRUE(MayPrintThroughProgram(desk)) << "another one was chosen on the spot";
  desk.screens.CurrentDesigner.clear();
  test.prompter.Expect("  ! !   ΠΡΟΣΟΧΗ   ! ! ", Answer::kNo);
  EXPECT_FALSE(MayPrintWith("κλειδί"));
  PutClient("Άννα");
  EXPECT_TRUE(MayPrintWith("κλειδί"));
}

TEST_F(PrintLock, StaysShutOverAFileThatIsNoList) {
  for (const std::string& bytes : {std::string(150, 'x'), std::string(200, 'x')}) {
    ASSERT_TRUE(test.workspace.Write(work_file::kDesigners, bytes).ok());
    EXPECT_FALSE(MayPrintThroughProgram(desk));
    EXPECT_NE(LastBox().find("CLIENTS.VAM"), std::string::npos);
  }
  PutList({{"Άννα"}, ""});
  disk.Bar(work_file::kDesigners);
  EXPECT_FALSE(MayPrintThroughProgram(desk)) << "it may have a password";
}

TEST_F(PrintLock, KeepsNamesOutThatHaveNoRoom) {
  const std::string too_long(51, 'a');
  desk.screens.CurrentDesigner = too_long;  // chosen for a print of the spreadsheet
  navigator.Expect(screen::kDesigners, [] {});
  EXPECT_FALSE(MayPrintThroughProgram(desk));
  EXPECT_NE(LastBox().find("από 50 χαρακτήρες"), std::string::npos);
  navigator.Expect(screen::kDesigners, [this, &too_long] {
    EXPECT_TRUE(desk.questions.designer_for_program);
    desk.screens.CurrentDesigner = too_long.substr(1);
  });
  EXPECT_TRUE(MayPrintThroughProgram(desk));
}

struct NameOnPaper : DesignerDesk, ::testing::Test {
  [[nodiscard]] std::vector<std::string> Clients() const {
    std::vector<std::string> clients;
    for (const SectionRow& row : test.Rows()) clients.push_back(row.Client.Utf8());
    return clients;
  }
};

TEST_F(NameOnPaper, IsThatOfTheRunThenOfTheStudyThenTheLast) {
  EXPECT_EQ(*DesignerName(desk), "");
  desk.options.designer = "Τελευταίος";
  EXPECT_EQ(*DesignerName(desk), "Τελευταίος");
  PutClient("Της μελέτης");
  EXPECT_EQ(*DesignerName(desk), "Της μελέτης");
  desk.screens.CurrentDesigner = "Τώρα";
  EXPECT_EQ(*DesignerName(desk), "Τώρα");
  disk.Bar(work_file::kRows);
  EXPECT_EQ(*DesignerName(desk), "Τώρα");
  desk.screens.CurrentDesigner.clear();
  EXPECT_FALSE(DesignerName(desk).ok());
}

TEST_F(NameOnPaper, ThatTheStudyCutsIsWholeAgain) {
  const std::string whole = "Γραφείο Μελετών Ηλεκτρομηχανολογικών Εγκαταστάσεων Αθηνών";
  PutClient(whole);
  const std::string cut = test.Rows().front().Client.Utf8();
  ASSERT_LT(cut.size(), whole.size());
  EXPECT_EQ(*DesignerName(desk), cut) << "nobody knows it";
  PutList({{"Γραφείο", whole, whole + " 2"}, "κλειδί"});
  EXPECT_EQ(*DesignerName(desk), whole);
  desk.options.designer = whole + " 2";
  EXPECT_EQ(*DesignerName(desk), whole + " 2") << "which was chosen last";
  desk.options.designer.clear();
  disk.Bar(work_file::kDesigners);
  EXPECT_EQ(*DesignerName(desk), cut) << "a list that cannot be read keeps no print from its paper";
}

TEST_F(NameOnPaper, GoesIntoAStudyThatHasNone) {
  test.study.unsaved_changes = false;
  EXPECT_TRUE(FillClient(desk));
  EXPECT_FALSE(test.study.unsaved_changes) << "there is no name to give";
  desk.screens.CurrentDesigner = std::string(50, 'a') + "Ώζ";
  EXPECT_TRUE(FillClient(desk));
  EXPECT_EQ(Clients(), std::vector<std::string>(2, std::string(50, 'a') + "Ώ"));
  EXPECT_TRUE(test.study.unsaved_changes);
  test.study.unsaved_changes = false;
  desk.screens.CurrentDesigner = "Άλλος";
  const std::string rows = test.Bytes();
  EXPECT_TRUE(FillClient(desk));
  EXPECT_EQ(test.Bytes(), rows);
  EXPECT_FALSE(test.study.unsaved_changes);
}

TEST_F(NameOnPaper, ThatCannotBeWrittenIsTold) {
  desk.screens.CurrentDesigner = "Άννα";
  test.study.unsaved_changes = false;
  failing.FailAfterBytes(400);
  EXPECT_FALSE(FillClient(desk));
  EXPECT_NE(LastBox().find("DATARES.TMP"), std::string::npos);
  EXPECT_EQ(Clients(), std::vector<std::string>(2)) << "the rows are whole";
  EXPECT_FALSE(test.study.unsaved_changes);
  failing.Mend();
  disk.Bar(work_file::kRows);
  EXPECT_FALSE(FillClient(desk));
}

}  // namespace
}  // namespace kalvo

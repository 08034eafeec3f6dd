#include <gtest/gtest.h>

#include "tests/results/designer_desk.h"

namespace kalvo {
namespace {

constexpr const char* kAdd = "... ΠΡΟΣΘΗΚΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΣΤΗ ΛΙΣΤΑ ...";
constexpr const char* kCorrect = "... ΠΡΟΣΘΗΚΗ ΔΙΟΡΘΩΜΕΝΟΥ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΣΤΗ ΛΙΣΤΑ ...";
constexpr const char* kDelete = "... ΔΙΑΓΡΑΦΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ΑΠΟ ΤΗ ΛΙΣΤΑ ...";
constexpr const char* kChoose = "... ΕΠΙΛΟΓΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ ...";
constexpr const char* kTrouble = " !!... ΠΡΟΣΟΧΗ ...!! ";
const std::vector<std::string> kFormCloses = {"close FrmCLient"};

struct DesignersForm : DesignerDesk, ::testing::Test {
  FrmCLient form{desk};

  void Load(const DesignerList& list = {{"Άννα", "Βασίλης"}, ""}) {
    PutList(list);
    form.Load();
  }
  void Leave() {
    form.Press(Plain(KeyCode::kEscape));
    EXPECT_EQ(TakeLog(), kFormCloses);
  }
  void TypeNew(std::string_view name) {
    form.Press(Ctrl('N'));
    EXPECT_EQ(form.focus(), &form.Txt_Client);
    TypeInto(form, form.Txt_Client, name);
  }
  void AddNew(std::string_view name) {
    TypeNew(name);
    test.prompter.Expect(kAdd, Answer::kYes);
    form.Press(Plain(KeyCode::kEnter));
  }
};

TEST_F(DesignersForm, ShowsTheNameThatHoldsAndTheList) {
  desk.options.designer = "Βασίλης";
  Load();
  EXPECT_EQ(form.title, "ΕΠΙΛΟΓΗ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ");
  EXPECT_EQ(form.SSPanel1.text, "Βασίλης");
  EXPECT_EQ(Joined(form.Lst_Names.lines()), "Άννα|Βασίλης");
  EXPECT_EQ(form.Lst_Names.selected, 1);
  EXPECT_EQ(form.LblCount.text, "< 0 > Χαρακτήρες");
  EXPECT_FALSE(form.Txt_Client.visible);
  EXPECT_FALSE(form.Txt_Pass.visible);
  const std::string file = test.Bytes(work_file::kDesigners);
  disk.Bar(work_file::kDesigners);
  Leave();
  EXPECT_TRUE(test.prompter.boxes().empty()) << "a list that did not change is not written";
}

TEST_F(DesignersForm, TakesNewNamesToTheFileWhenItCloses) {
  form.Load();
  TypeNew("Ζωή Ωρίων");
  EXPECT_EQ(form.LblPrompt.text, "ΔΩΣΕ ΤΟ ΟΝΟΜΑ ΤΟΥ ΝΕΟΥ ΜΕΛΕΤΗΤΗ");
  EXPECT_EQ(form.LblCount.text, "< 9 > Χαρακτήρες");
  test.prompter.Expect(kAdd, Answer::kNo);
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(form.Lst_Names.count(), 0);
  EXPECT_EQ(form.Txt_Client.text, "Ζωή Ωρίων") << "what was typed is not lost";
  test.prompter.Expect(kAdd, Answer::kYes);
  Click(form, form.Cmd_Store);
  EXPECT_EQ(test.prompter.boxes().back().beeps, 2);
  EXPECT_EQ(test.prompter.boxes().back().style, box_style::kDefaultNo);
  EXPECT_FALSE(form.Txt_Client.visible);
  EXPECT_EQ(form.focus(), &form.Lst_Names);
  EXPECT_FALSE(test.workspace.Exists(work_file::kDesigners));
  Leave();
  EXPECT_EQ(List(), (DesignerList{{"Ζωή Ωρίων"}, ""}));
}

TEST_F(DesignersForm, TakesSeventyEightCharactersAndNoMore) {
  form.Load();
  std::string name;
  for (int i = 0; i < 39; ++i) name += "ΏΖ";
  AddNew(name + "Ω");
  Leave();
  EXPECT_EQ(List().names, std::vector{name});
}

TEST_F(DesignersForm, RefusesANameThatIsEmptyOrThere) {
  Load();
  TypeNew("  ");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(LastBox(), "... ΔΕΝ έχετε δώσει Όνομα ...");
  TypeInto(form, form.Txt_Client, " Άννα ");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_NE(LastBox().find("υπάρχει - ήδη - στη Λίστα"), std::string::npos);
  EXPECT_EQ(form.focus(), &form.Txt_Client);
  EXPECT_EQ(form.Lst_Names.count(), 2);
}

TEST_F(DesignersForm, CorrectsTheSelectedName) {
  Load();
  form.Lst_Names.Select(1);
  form.Press(Plain(KeyCode::kF2));
  EXPECT_EQ(form.LblPrompt.text, "ΔΙΟΡΘΩΣΗ ΤΟΥ ΟΝΟΜΑΤΟΣ ΜΕΛΕΤΗΤΗ");
  EXPECT_EQ(form.Txt_Client.text, "Βασίλης");
  EXPECT_EQ(form.LblCount.text, "< 7 > Χαρακτήρες");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_TRUE(test.prompter.boxes().empty()) << "nothing was corrected";
  form.Press(Plain(KeyCode::kF2));
  TypeInto(form, form.Txt_Client, "ΒΑΣΙΛΗΣ");
  form.Lst_Names.Select(0);
  test.prompter.Expect(kCorrect, Answer::kYes);
  Click(form, form.Cmd_Store);
  Leave();
  EXPECT_EQ(Joined(List().names), "Άννα|ΒΑΣΙΛΗΣ");
}

TEST_F(DesignersForm, DeletesAnyNameButTheOnlyOne) {
  Load();
  test.prompter.Expect(kDelete, Answer::kNo);
  form.Press(Ctrl(KeyCode::kDelete));
  EXPECT_EQ(form.Lst_Names.count(), 2);
  test.prompter.Expect(kDelete, Answer::kYes);
  form.Press(Ctrl(KeyCode::kDelete));
  EXPECT_EQ(Joined(form.Lst_Names.lines()), "Βασίλης");
  EXPECT_EQ(form.Lst_Names.selected, 0);
  form.Press(Ctrl(KeyCode::kDelete));
  EXPECT_EQ(LastBox(), "... ΔΕΝ μπορώ να διαγράψω τη μοναδική Καταχώρηση ...");
  Leave();
  EXPECT_EQ(Joined(List().names), "Βασίλης");
}

TEST_F(DesignersForm, CopiesTheNameThatHoldsOnce) {
  PutClient("Γραφείο Μελετών");
  Load();
  EXPECT_EQ(form.SSPanel1.text, "Γραφείο Μελετών");
  form.Press(Plain(KeyCode::kF5));
  EXPECT_EQ(form.Lst_Names.selected, 2);
  form.Lst_Names.Select(0);
  form.Press(Plain(KeyCode::kF5));
  EXPECT_EQ(form.Lst_Names.selected, 2);
  EXPECT_NE(LastBox().find("υπάρχει - ήδη"), std::string::npos);
  Leave();
  EXPECT_EQ(Joined(List().names), "Άννα|Βασίλης|Γραφείο Μελετών");
}

TEST_F(DesignersForm, WithoutNamesSaysWhatIsMissing) {
  form.Load();
  EXPECT_EQ(form.SSPanel1.text, "—");
  for (Command* command :
       {&form.Cmd_Copy, &form.Cmd_COR, &form.Cmd_Del, &form.Cmd_Lock, &form.Cmd_OK}) {
    const std::size_t boxes = test.prompter.boxes().size();
    Click(form, *command);
    EXPECT_EQ(test.prompter.boxes().size(), boxes + 1) << command->name();
  }
  Leave();
  EXPECT_FALSE(test.workspace.Exists(work_file::kDesigners));
}

TEST_F(DesignersForm, ChoosesANameForThisRunAndTheNext) {
  PutClient("Γραφείο Μελετών");
  Load();
  form.Lst_Names.Select(1);
  test.prompter.Expect(kChoose, Answer::kNo);
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(LastBox(), "... Μελετητής : Βασίλης ...|... ΣΥΜΦΩΝΕΙΤΕ ??? ...");
  EXPECT_EQ(desk.screens.CurrentDesigner, "");
  test.prompter.Expect(kChoose, Answer::kYes);
  form.Lst_Names.Activate(1);
  EXPECT_EQ(desk.screens.CurrentDesigner, "Βασίλης");
  EXPECT_EQ(desk.options.designer, "Βασίλης");
  EXPECT_EQ(TakeLog(), kFormCloses);
}

TEST_F(DesignersForm, SaysWhenTheStudyKeepsAnotherName) {
  PutClient("Γεώργιος");
  PutList({{"Γεώργιος", "Δεύτερος"}, ""});
  form.Load();
  EXPECT_FALSE(form.LblStudy.visible);
  desk.screens.CurrentDesigner = "Δεύτερος";
  form.Load();
  EXPECT_TRUE(form.LblStudy.visible);
  EXPECT_NE(form.LblStudy.text.find("< Γεώργιος >"), std::string::npos);
}

TEST_F(DesignersForm, LimitsTheNameOnlyWhereTheProgramPrints) {
  const std::string fits(50, 'a');
  const std::string too_long(51, 'b');
  for (const bool through_program : {true, false}) {
    navigator.Expect(screen::kDesigners, [&] {
      FrmCLient user(desk);
      PutList({{fits, too_long}, ""});
      user.Load();
      user.Lst_Names.Select(1);
      if (!through_program) test.prompter.Expect(kChoose, Answer::kYes);
      Click(user, user.Cmd_OK);
      EXPECT_EQ(desk.screens.CurrentDesigner, through_program ? "" : too_long);
      if (!through_program) return;
      EXPECT_NE(LastBox().find("περισσότερους από 50 χαρακτήρες"), std::string::npos);
      user.Lst_Names.Select(0);
      test.prompter.Expect(kChoose, Answer::kYes);
      Click(user, user.Cmd_OK);
      EXPECT_EQ(std::exchange(desk.screens.CurrentDesigner, ""), fits);
    });
    ChooseDesigner(desk, through_program);
  }
}

TEST_F(DesignersForm, AsksForThePasswordOnlyWhereANameIsChosen) {
  Load({{"Άννα", "Βασίλης"}, "κλειδί"});
  EXPECT_TRUE(form.Txt_Pass.visible);
  AddNew("Γιώργος");
  test.prompter.Expect(kDelete, Answer::kYes);
  Click(form, form.Cmd_Del);
  Click(form, form.Cmd_OK);
  EXPECT_EQ(LastBox(), "!! ΔΕΝ έχετε δώσει το Password !!");
  EXPECT_EQ(form.focus(), &form.Txt_Pass);
  TypeInto(form, form.Txt_Pass, "ΚΛΕΙΔΙ");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(LastBox(), "!! Το Password ΔΕΝ ισχύει !!");
  EXPECT_EQ(desk.screens.CurrentDesigner, "");
  TypeInto(form, form.Txt_Pass, "κλειδί");
  test.prompter.Expect(kChoose, Answer::kYes);
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(desk.screens.CurrentDesigner, "Βασίλης");
  EXPECT_EQ(List(), (DesignerList{{"Άννα", "Βασίλης"}, "κλειδί"}));
}

TEST_F(DesignersForm, AsksBeforeATypedNameIsDropped) {
  Load();
  TypeNew("Γιώργος");
  test.prompter.Expect(kAttentionTitle, Answer::kCancel);
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(test.prompter.boxes().back().style, box_style::kDefaultCancel);
  EXPECT_EQ(form.Txt_Client.text, "Γιώργος");
  test.prompter.Expect(kAttentionTitle, Answer::kCancel);
  EXPECT_FALSE(form.MayClose());
  test.prompter.Expect(kAttentionTitle, Answer::kYes);
  test.prompter.Expect(kDelete, Answer::kNo);
  Click(form, form.Cmd_Del);
  EXPECT_EQ(Joined(form.Lst_Names.lines()), "Άννα|Βασίλης|Γιώργος");
  form.Press(Plain(KeyCode::kF2));
  TypeInto(form, form.Txt_Client, "Γεώργιος");
  test.prompter.Expect(kAttentionTitle, Answer::kNo);
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_TRUE(TakeLog().empty()) << "only the field is closed";
  Leave();
  EXPECT_EQ(Joined(List().names), "Άννα|Βασίλης|Γιώργος");
}

TEST_F(DesignersForm, StaysOpenWhereTheListCannotBeWritten) {
  Load();
  AddNew("Γιώργος");
  failing.FailAfterBytes(failing.written() / 2);
  test.prompter.Expect(kTrouble, Answer::kNo);
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_NE(LastBox().find("CLIENTS.VAM"), std::string::npos) << LastBox();
  EXPECT_EQ(test.prompter.boxes().back().style, box_style::kStopDefaultNo);
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(Joined(List().names), "Άννα|Βασίλης") << "the old file is whole";
  test.prompter.Expect(kTrouble, Answer::kYes);
  EXPECT_TRUE(form.MayClose()) << "there is a way out";
  failing.Mend();
  Leave();
  EXPECT_EQ(Joined(List().names), "Άννα|Βασίλης|Γιώργος");
}

TEST_F(DesignersForm, LeavesAListAloneThatItCannotRead) {
  for (const std::string& bytes : {std::string(150, 'x'), std::string(200, 'x')}) {
    ASSERT_TRUE(test.workspace.Write(work_file::kDesigners, bytes).ok());
    FrmCLient broken(desk);
    broken.Load();
    EXPECT_NE(LastBox().find("CLIENTS.VAM"), std::string::npos);
    for (Command* command : {&broken.Cmd_New, &broken.Cmd_Copy, &broken.Cmd_Lock, &broken.Cmd_OK}) {
      const std::size_t boxes = test.prompter.boxes().size();
      Click(broken, *command);
      EXPECT_EQ(test.prompter.boxes().size(), boxes + 1) << command->name();
    }
    EXPECT_TRUE(broken.MayClose());
    EXPECT_EQ(test.Bytes(work_file::kDesigners), bytes);
  }
}

TEST_F(DesignersForm, GetsAPasswordWithItsNames) {
  Load();
  AddNew("Γιώργος");
  InPasswordForm([this](FrmCLPass& pass) {
    EXPECT_EQ(pass.title, "ΕΞΟΥΣΙΟΔΟΤΗΣΗ");
    EXPECT_FALSE(pass.TxtOld.visible) << "there is none yet";
    TypeInto(pass, pass.TxtPass, "κλειδί");
    pass.Press(Plain(KeyCode::kEnter));
    EXPECT_EQ(pass.focus(), &pass.TxtPassOK);
    TypeInto(pass, pass.TxtPassOK, "κλειδί");
    pass.Press(Plain(KeyCode::kEnter));
    EXPECT_EQ(pass.focus(), &pass.Cmd_OK);
    pass.Press(Plain(KeyCode::kEnter));
    EXPECT_EQ(TakeLog().back(), "close FrmCLPass");
  });
  Click(form, form.Cmd_Lock);
  EXPECT_EQ(List(), (DesignerList{{"Άννα", "Βασίλης", "Γιώργος"}, "κλειδί"}));
  EXPECT_TRUE(form.Txt_Pass.visible);
}

TEST_F(DesignersForm, KeepsItsPasswordUntilTheNewOneIsSure) {
  Load({{"Άννα"}, "παλιό"});
  InPasswordForm([this](FrmCLPass& pass) {
    TypeInto(pass, pass.TxtPass, "νέο");
    TypeInto(pass, pass.TxtPassOK, "νέο");
    Click(pass, pass.Cmd_OK);
    EXPECT_EQ(LastBox(), "!! ΔΕΝ έχετε δώσει το Password !!");
    TypeInto(pass, pass.TxtOld, "άλλο");
    Click(pass, pass.Cmd_OK);
    EXPECT_EQ(LastBox(), "!! Το Password ΔΕΝ ισχύει !!");
    EXPECT_EQ(pass.focus(), &pass.TxtOld);
    TypeInto(pass, pass.TxtOld, "παλιό");
    TypeInto(pass, pass.TxtPassOK, "ΝΕΟ");
    Click(pass, pass.Cmd_OK);
    EXPECT_EQ(LastBox(), "... Τα δυο Passwords, που εδώσατε ΔΕΝ συμπίπτουν ...");
    EXPECT_EQ(pass.TxtPass.text + pass.TxtPassOK.text, "");
    test.prompter.Expect(kAttentionTitle, Answer::kNo);
    Click(pass, pass.Cmd_OK);
    EXPECT_EQ(test.prompter.boxes().back().style, box_style::kDefaultNo);
    pass.Press(Plain(KeyCode::kEscape));
  });
  Click(form, form.Cmd_Lock);
  EXPECT_EQ(List().password, "παλιό");
  InPasswordForm([this](FrmCLPass& pass) {
    TypeInto(pass, pass.TxtOld, "παλιό");
    TypeInto(pass, pass.TxtPass, std::string(25, '7'));
    TypeInto(pass, pass.TxtPassOK, std::string(20, '7'));
    Click(pass, pass.Cmd_OK);
  });
  Click(form, form.Cmd_Lock);
  EXPECT_EQ(List().password, std::string(20, '7'));
  InPasswordForm([this](FrmCLPass& pass) {
    TypeInto(pass, pass.TxtOld, std::string(20, '7'));
    test.prompter.Expect(kAttentionTitle, Answer::kYes);
    Click(pass, pass.Cmd_OK);
    EXPECT_EQ(test.prompter.boxes().back().lines.size(), 2U);
  });
  Click(form, form.Cmd_Lock);
  EXPECT_EQ(List(), (DesignerList{{"Άννα"}, ""}));
  EXPECT_FALSE(form.Txt_Pass.visible);
}

TEST_F(DesignersForm, KeepsTheOldPasswordWhereTheNewOneCannotBeWritten) {
  Load({{"Άννα"}, "παλιό"});
  InPasswordForm([this](FrmCLPass& pass) {
    TypeInto(pass, pass.TxtOld, "παλιό");
    TypeInto(pass, pass.TxtPass, "νέο");
    TypeInto(pass, pass.TxtPassOK, "νέο");
    Click(pass, pass.Cmd_OK);
    failing.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  });
  Click(form, form.Cmd_Lock);
  EXPECT_NE(LastBox().find("CLIENTS.VAM"), std::string::npos);
  EXPECT_EQ(List().password, "παλιό");
  EXPECT_EQ(desk.screens.AccessPassword, "παλιό");
  failing.Mend();
  navigator.log.clear();
  Leave();
  EXPECT_EQ(List().password, "παλιό");
}

}  // namespace
}  // namespace kalvo

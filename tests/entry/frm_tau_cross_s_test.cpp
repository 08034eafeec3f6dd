#include "entry/tees/frm_tau_cross.h"

#include <gtest/gtest.h>

#include "tests/support/tee_counters_in_memory.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

struct TeeForm : TestDesk, ::testing::Test {
  TeeForm() {
    desk.screens.tee_counters = &counters;
    form.Load();
    form.Activate();
    form.Derive();
  }
  [[nodiscard]] std::vector<std::string> Shown() {
    form.Derive();
    return {form.LblSection.text, form.LblDiaTee.text, form.LblDieTee.text, form.LblAntiTee.text,
            form.LblSymboTee.text};
  }
  void Type(std::u32string_view keys) {
    for (const char32_t character : keys) form.Press(Typed(character));
  }

  TeeCountersInMemory counters;
  FrmTauCross_S form{desk};
};

TEST_F(TeeForm, TakesItsLettersFromAnyLayoutAndAsButtons) {
  Type(U"AaΑαqQ;:ΤτTtUuΥ1 ");
  EXPECT_EQ(counters.pressed, "AAAAQQQQTTTT");
  EXPECT_FALSE(form.Press(Ctrl('A')));
  EXPECT_FALSE(form.Press(Alt('A')));
  Click(form, form.Get<Command>("Cmd_M"));
  EXPECT_EQ(counters.pressed.back(), 'M');
  EXPECT_EQ(form.letters.size(), 20U);
}

TEST_F(TeeForm, HasAMenuEntryForEachLetter) {
  ASSERT_EQ(form.menus.size(), 3U);
  EXPECT_EQ(form.menus[0].entries.size(), 12U);
  EXPECT_EQ(form.menus[1].entries.size(), 8U);
  EXPECT_EQ(form.menus[0].entries.front().name, "mnuTau_A");
  EXPECT_EQ(form.menus[0].entries.back().name, "mnuTau_L");
  EXPECT_EQ(form.menus[0].entries.back().caption, "Επιλογή < L >");
  EXPECT_EQ(form.menus[1].entries.front().name, "mnuCross_M");
  for (const Menu& menu : {form.menus[0], form.menus[1]}) {
    for (const MenuEntry& entry : menu.entries) form.Run(*entry.command);
  }
  EXPECT_EQ(counters.pressed, "ABCDEFGHIJKLMNOPQRST");
}

TEST_F(TeeForm, ShowsTheSectionAndItsCountersAfterEachPress) {
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Τμήμα 13 : 6 / 7", "0", "0", "0", "0"}));
  Type(U"QMG");
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Τμήμα 13 : 6 / 7", "1", "2", "1", "1"}));
  counters.section = "Τμήμα 14 : 7 / 8";
  counters.counts = {"5", "", "", ""};
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Τμήμα 14 : 7 / 8", "5", "0", "0", "0"}));
}

TEST_F(TeeForm, TellsTheEffectOfEachLetter) {
  EXPECT_EQ(form.Get<Label>("LblEffect_D").text, "Συμβολή +1");
  EXPECT_EQ(form.Get<Label>("LblEffect_S").text, "Διακλάδωση +1\nΣυμβολή +1");
  EXPECT_EQ(form.Get<Command>("Cmd_B").tone, Tone::kQuiet);
  EXPECT_EQ(form.Get<Command>("Cmd_A").tone, Tone::kPlain);
  EXPECT_EQ(form.Get<Command>("Cmd_A").spoken,
            "A: αριστερό σκέλος, ροή προς τον κόμβο, Διέλευση +1");
}

TEST_F(TeeForm, SaysWhenACountIsFull) {
  counters.counts[0] = "32767";
  Type(U"C");
  EXPECT_EQ(Shown()[1], "32767");
  EXPECT_EQ(sound.beeps, 1);
  EXPECT_EQ(form.LblHint.tone, Tone::kAlarm);
  Type(U"A");
  EXPECT_EQ(Shown()[2], "1");
  EXPECT_EQ(form.LblHint.tone, Tone::kPlain);
  Type(U"C");
  counters.section = "Τμήμα 14 : 7 / 8";
  form.Derive();
  EXPECT_EQ(form.LblHint.tone, Tone::kPlain) << "it was said of another section";
}

TEST_F(TeeForm, SoundsAndGivesTheKeysBackWhenItCloses) {
  desk.options.SoundOn = true;
  Type(U"A");
  EXPECT_EQ(sound.played, 1);
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(sound.played, 2);
  EXPECT_EQ(counters.brought, 1);
  EXPECT_FALSE(form.MayClose()) << "the close box does what the command does";
  EXPECT_EQ(sound.played, 3);
  EXPECT_EQ(counters.brought, 2);
  EXPECT_EQ(navigator.log,
            (std::vector<std::string>{"close FrmTauCross_S", "close FrmTauCross_S"}));
  EXPECT_EQ(desk.screens.tee_counters, &counters);
}

TEST_F(TeeForm, ServesTheSectionFormUnderItsOwnNameByItsOwnTable) {
  EXPECT_EQ(counters.shown, 1);
  counters.table = TeeTable::kForm;
  FrmTauCross beside_form(desk);
  beside_form.Load();
  beside_form.Activate();
  beside_form.Derive();
  EXPECT_EQ(counters.shown, 2);
  EXPECT_EQ(beside_form.Get<Label>("LblEffect_R").text, "Διέλευση +2");
  for (const char32_t letter : U"der") beside_form.Press(Typed(letter));
  beside_form.Derive();
  EXPECT_EQ(beside_form.LblDieTee.text, "2");
  EXPECT_EQ(beside_form.LblSymboTee.text, "1");
  beside_form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(navigator.log, std::vector<std::string>{"close FrmTauCross"});
  EXPECT_EQ(counters.brought, 1);
}

TEST_F(TeeForm, ClosesWhereThereIsNothingToServe) {
  EXPECT_TRUE(navigator.log.empty());
  desk.screens.tee_counters = nullptr;
  Type(U"A");
  Click(form, form.Get<Command>("Cmd_C"));
  EXPECT_EQ(counters.pressed, "");
  EXPECT_EQ(Shown()[0], "—");
  form.Activate();
  EXPECT_EQ(navigator.log, (std::vector<std::string>{"close FrmTauCross_S"}));
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(counters.brought, 0);
}

}  // namespace
}  // namespace kalvo

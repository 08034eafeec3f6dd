#include "entry/sections/frm_what.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

using Use = std::function<void(FrmWhat&)>;

std::optional<EntryChoice> ChosenBy(const Use& use) {
  TestDesk test;
  test.navigator.Expect(screen::kEntryChoice, [&] {
    FrmWhat form(test.desk);
    form.Load();
    use(form);
  });
  const auto choice = AskHowToEnter(test.desk);
  EXPECT_FALSE(test.desk.questions.entry_choice) << "nothing is left for the next time";
  return choice;
}

TEST(EntryChoiceForm, GivesTheOptionThatIsChosen) {
  const std::pair<Use, EntryChoice> ways[] = {
      {[](FrmWhat& form) { Click(form, form.SSCommand1); }, EntryChoice::kCorrect},
      {[](FrmWhat& form) {
         form.SSOption2.Set(true);
         form.Press(Plain(KeyCode::kEnter));
       },
       EntryChoice::kGoOn},
      {[](FrmWhat& form) {
         form.Run(*form.menus.at(0).entries.at(1).command);
         EXPECT_FALSE(form.SSOption1.on);
         EXPECT_EQ(form.focus(), &form.SSOption2);
         form.Run(form.SSCommand1);
       },
       EntryChoice::kGoOn},
      {[](FrmWhat& form) {
         form.SSOption2.Set(true);
         form.SSOption1.Set(true);
         form.Run(form.SSCommand1);
       },
       EntryChoice::kCorrect}};
  for (const auto& [use, choice] : ways) EXPECT_EQ(ChosenBy(use), choice);
}

TEST(EntryChoiceForm, ClosedGivesNothing) {
  EXPECT_EQ(ChosenBy([](FrmWhat& form) {
              form.SSOption2.Set(true);
              form.Press(Plain(KeyCode::kEscape));
            }),
            std::nullopt);
  EXPECT_EQ(ChosenBy([](FrmWhat& form) { EXPECT_TRUE(form.MayClose()); }), std::nullopt);
}

}  // namespace
}  // namespace kalvo

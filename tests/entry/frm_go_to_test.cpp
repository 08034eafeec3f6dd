#include "entry/sections/frm_go_to.h"

#include <gtest/gtest.h>

#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

struct GoToForm : TestDesk, ::testing::Test {
  // A chain of so many sections.
  void PutSections(int count) {
    std::vector<std::string> names = {"ANT/1 1m"};
    for (int i = 1; i < count; ++i) {
      names.push_back(std::to_string(i) + "/" + std::to_string(i + 1) + " 1m");
    }
    test.PutNetwork({names.begin(), names.end()});
  }
  void Type(std::string_view digits) {
    for (const char digit : digits) {
      form.Press(Typed(static_cast<char32_t>(digit)));
    }
  }
  FrmGoTo form{desk};
};

TEST_F(GoToForm, AlignsTheNumbersForItsCaller) {
  PutSections(120);
  form.Load();
  EXPECT_EQ(form.LstSections.lines().front(), "  1. -> ANT/1");
  EXPECT_EQ(form.LstSections.lines().back(), "120. -> 119/120");
  EXPECT_EQ(form.focus(), &form.LstSections);
  desk.questions.section_of_results = true;
  form.Load();
  EXPECT_EQ(form.LstSections.lines()[9], "  10. -> 9/10");
}

TEST_F(GoToForm, GoesByDoubleClickAndByTheCommand) {
  PutSections(3);
  form.Load();
  EXPECT_EQ(form.LstSections.selected, 0) << "it begins where the caller stands";
  form.LstSections.Activate(2);
  EXPECT_EQ(test.study.CurrentRow, 3);
  form.LstSections.Select(1);
  Click(form, form.Cmd_GoToR);
  EXPECT_EQ(test.study.CurrentRow, 2);
  EXPECT_EQ(navigator.log, (std::vector<std::string>{"close FrmGoTo", "close FrmGoTo"}));
}

TEST_F(GoToForm, SelectsByTheNumberTyped) {
  PutSections(25);
  form.Load();
  Type("1");
  EXPECT_EQ(form.LstSections.selected, 0);
  Type("7");
  EXPECT_EQ(form.LstSections.selected, 16);
  Type("2");
  EXPECT_EQ(form.LstSections.selected, 1) << "there is no 172: a new number begins";
  form.Press(Plain(KeyCode::kDown));
  Type("04");
  EXPECT_EQ(form.LstSections.selected, 3);
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(test.study.CurrentRow, 4);
}

TEST_F(GoToForm, EscapeLeavesAllAsItWas) {
  PutSections(3);
  desk.questions.section_of_results = true;
  form.Load();
  form.LstSections.Select(2);
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(test.study.CurrentRow, 1);
  EXPECT_TRUE(desk.questions.section_of_results);
  EXPECT_EQ(navigator.log.back(), "close FrmGoTo");
}

TEST_F(GoToForm, GoesNowhereWithoutRows) {
  form.Load();
  Click(form, form.Cmd_GoToR);
  EXPECT_TRUE(navigator.log.empty());
}

}  // namespace
}  // namespace kalvo

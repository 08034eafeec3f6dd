#include "shell/frm_calcs.h"

#include <gtest/gtest.h>

#include "shell/frm_main.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

/// The main menu over an open network, whose calculation asks for the method.
struct MethodChoice : TestDesk, ::testing::Test {
  MethodChoice() : TestDesk(SystemKind::kOpen) {
    test.PutNetwork(
        {"1/ANT 5m", "2/1 5m 2up outlet 300 l/h 5mwg", "3/1 5m 4up outlet 200 l/h 5mwg"});
    test.study.study_title = "Ύδρευση";
  }
  /// Calculates and does that in the choice.
  void Calculate(const std::function<void(FrmCalcs&)>& use) {
    navigator.Expect(screen::kMethod, [&] {
      FrmCalcs choice(desk);
      choice.Load();
      use(choice);
    });
    Click(menu, menu.Cmd_Calc);
  }
  FrmMain menu{desk};
};

TEST_F(MethodChoice, MakesTheRunBeforeItCloses) {
  Calculate([&](FrmCalcs& choice) {
    EXPECT_EQ(choice.title, "... < ΑΝΟΙΚΤΟ > ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ ...");
    EXPECT_TRUE(choice.SSOption1.on);
    choice.SSOption2.Set(true);
    EXPECT_FALSE(choice.SSOption1.on);
    choice.Press(Plain(KeyCode::kEnter));
    EXPECT_NE(test.Row(1).PAR, 0.0F);
  });
  EXPECT_EQ(navigator.waits[1], " ... Παρακαλώ, Περιμένετε ...");
  EXPECT_EQ(test.study.method, Method::kFlowAndPressure);
  EXPECT_TRUE(navigator.IsOpen(screen::kResultsSheet));
}

TEST_F(MethodChoice, ClosedCalculatesNothing) {
  const auto by_key = [](FrmCalcs& choice) { choice.Press(Plain(KeyCode::kEscape)); };
  const auto by_close_box = [](FrmCalcs& choice) { EXPECT_TRUE(choice.MayClose()); };
  for (const std::function<void(FrmCalcs&)>& use :
       {std::function<void(FrmCalcs&)>(by_key), std::function<void(FrmCalcs&)>(by_close_box)}) {
    Calculate([&](FrmCalcs& choice) { use(choice); });
    EXPECT_EQ(test.Row(1).PAR, 0.0F);
    EXPECT_FALSE(navigator.IsOpen(screen::kResultsSheet));
  }
}

}  // namespace
}  // namespace kalvo

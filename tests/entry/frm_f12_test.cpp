#include "entry/emitters/frm_f12.h"

#include <gtest/gtest.h>

#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

TEST(MemoryForm, KeepsWhatIsTypedAndForgetsAZero) {
  TestDesk test;
  test.desk.screens.emitter_memory = {520.5F, 1620};
  FrmF12 form(test.desk);
  form.Load();
  EXPECT_EQ(form.title, "ΠΑΡΟΧΗ ΝΕΡΟΥ ΚΑΙ ΠΤΩΣΗ ΠΙΕΣΗΣ");
  EXPECT_EQ(form.LblNow1.text, "520,5 ");
  EXPECT_EQ(form.Text2.text, "1620");
  EXPECT_FALSE(form.Text3.visible);
  TypeInto(form, form.Text1, "0");
  form.Press(Plain(KeyCode::kEnter));
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(form.focus(), &form.Cmd_OK);
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(test.desk.screens.emitter_memory, (std::array{kNoMemory, 1620.0F}));
  EXPECT_EQ(test.navigator.log.back(), "close FrmF12");
}

TEST(MemoryForm, HoldsThreeValuesOfOutlets) {
  TestDesk test(SystemKind::kOpen);
  FrmF12 form(test.desk);
  form.Load();
  EXPECT_EQ(form.title, "ΠΑΡΟΧΗ, ΠΙΕΣΗ ΡΟΗΣ ΚΑΙ ΥΨ.ΔΙΑΦΟΡΑ");
  EXPECT_EQ(form.Text1.text, "");
  EXPECT_EQ(form.LblPressureUnit.text, "[m w.g.]");
  TypeInto(form, form.Text1, "250");
  TypeInto(form, form.Text2, "8,5");
  TypeInto(form, form.Text3, "1.4");
  form.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(test.desk.screens.outlet_memory, (std::array{250.0F, 8.5F, 1.4F}));
  EXPECT_EQ(test.desk.screens.emitter_memory[0], kNoMemory);

  FrmF12 left(test.desk);
  left.Load();
  TypeInto(left, left.Text1, "1,2,3");
  left.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(test.desk.screens.outlet_memory[0], 250.0F) << "leaving changes nothing";
  left.Press(Ctrl(KeyCode::kDelete));
  EXPECT_EQ(test.desk.screens.outlet_memory, (std::array{kNoMemory, kNoMemory, kNoMemory}));
}

}  // namespace
}  // namespace kalvo

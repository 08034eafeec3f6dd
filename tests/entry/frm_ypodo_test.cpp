#include "entry/emitters/frm_ypodo.h"

#include <gtest/gtest.h>

#include "entry/emitters/emitter_forms.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

struct OutletForm : TestDesk, ::testing::Test {
  OutletForm() : TestDesk(SystemKind::kOpen) {
    Put({"1/ANT 5m", "2/1 5m outlet 300 l/h 5mwg", "3/1 5m 2up outlet 200 l/h 8mwg"});
  }
  void Put(const std::vector<std::string_view>& lines) {
    test.PutNetwork(lines);
    test.study.results_valid = true;
    for (int number = 1; number <= test.study.SectionCount; ++number) {
      test.ChangeRow(number,
                     [this](SectionRow& changed) { changed.Outlets = test.study.EmitterCount; });
    }
  }
  void OpenNew() {
    Put({"1/ANT 5m", "2/1 5m", "3/1 5m"});
    form.Load();
    form.Derive();
  }
  void Open() {
    desk.screens.edit_mode = true;
    form.Load();
    form.Derive();
  }
  void TypeOutlet(std::string_view flow, std::string_view pressure, std::string_view height) {
    TypeInto(form, form.Text3, flow);
    TypeInto(form, form.Text4, pressure);
    TypeInto(form, form.Text5, height);
  }
  [[nodiscard]] std::string Fields() const {
    return Joined(
        {form.Text1.text, form.Text2.text, form.Text3.text, form.Text4.text, form.Text5.text});
  }
  [[nodiscard]] bool HasEnded() const {
    return !navigator.log.empty() && navigator.log.back() == "close FrmYpodo";
  }
  FrmYpodo form{desk};
};

TEST_F(OutletForm, WalksThroughTheOutletsItFound) {
  OpenNew();
  EXPECT_EQ(Fields(), "2|2/1|||");
  EXPECT_EQ(form.LblTotal.text, "2");
  EXPECT_EQ(form.LstYpodo.row_count(), 0);
  EXPECT_EQ(form.focus(), &form.Text3);
  TypeInto(form, form.Text3, "250,5");
  for (Control* next : std::initializer_list<Control*>{&form.Text4, &form.Text5, &form.SSCmdNext}) {
    form.Press(Plain(KeyCode::kEnter));
    EXPECT_EQ(form.focus(), next);
  }
  Click(form, form.SSCmdNext);
  EXPECT_EQ(form.focus(), &form.Text4) << "in silence";
  TypeInto(form, form.Text4, "8,25");
  TypeInto(form, form.Text5, "-1,5");
  EXPECT_EQ(form.Text5.text, "1,5") << "the minus is no key of this field";
  TypeInto(form, form.Text5, "");
  form.Press(Ctrl(KeyCode::kEnd));
  EXPECT_EQ(form.Text2.text, "2/1") << "one of its fields is empty";
  Click(form, form.SSCmdNext);
  EXPECT_EQ(Fields(), "3|3/1|||") << "a height may be 0";
  EXPECT_EQ(form.LstYpodo.At(0, 2).text, "Παροχή : 250,5");
  EXPECT_EQ(form.LstYpodo.At(0, 3).text, "Πίεση Ροής : 8,25");
  EXPECT_EQ(form.LstYpodo.At(0, 4).text, "Υψος από Αντλία : 0,0");
  EXPECT_EQ(test.Row(2).WaterFlow, 250.5F);
  TypeOutlet("200", "10", "2,5");
  form.Press(Ctrl(KeyCode::kEnd));
  EXPECT_EQ(Fields(), "");
  EXPECT_EQ(form.focus(), &form.SSCmdBack);
  ASSERT_EQ(form.Chart.columns.size(), 2U);
  EXPECT_EQ(form.Chart.columns[1].total, "12,5");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_TRUE(HasEnded());
  EXPECT_EQ(test.study.TotalFlowM3h, 0.4505F);
  EXPECT_EQ(test.Row(3).HeightDiff, 2.5F);
  EXPECT_EQ(test.Row(1).Outlets, 2);
  EXPECT_TRUE(test.study.unsaved_changes);
  EXPECT_FALSE(test.study.results_valid || test.study.emitters_unchecked);
}

TEST_F(OutletForm, EndsAsItBeganWithoutAChange) {
  Open();
  EXPECT_EQ(Fields(), "2|2/1|300|5|0");
  EXPECT_EQ(form.LstYpodo.row_count(), 2);
  const std::string rows = test.Bytes();
  form.Press(Ctrl(KeyCode::kEnd));
  EXPECT_EQ(Fields(), "3|3/1|200|8|2");
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_TRUE(HasEnded());
  EXPECT_EQ(test.Bytes(), rows);
  EXPECT_TRUE(test.study.results_valid);
  EXPECT_FALSE(test.study.unsaved_changes || desk.screens.edit_mode);
}

TEST_F(OutletForm, ItsEndTellsOfOutletsWithoutValues) {
  OpenNew();
  TypeOutlet("250", "8", "1");
  Click(form, form.SSCmdBack);
  EXPECT_EQ(test.Row(2).SomaDrop, 8.0F) << "the outlet in hand is stored";
  ASSERT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_NE(test.prompter.boxes()[0].lines[0].find("< 3 >"), std::string::npos);
  EXPECT_TRUE(test.study.emitters_unchecked);
  EXPECT_TRUE(HasEnded());
}

TEST_F(OutletForm, AsksBeforeItLeavesAnUnfinishedOutlet) {
  Open();
  TypeInto(form, form.Text4, "0");
  Click(form, form.SSCmdBack);
  EXPECT_EQ(form.focus(), &form.Text4);
  test.prompter.Expect("...! Π Ρ Ο Σ Ο Χ Η !...", Answer::kNo);
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_TRUE(navigator.log.empty());
  TypeInto(form, form.Text4, "6");
  form.Press(kAltShift);
  EXPECT_EQ(test.prompter.codes(), std::vector{2003});
  EXPECT_EQ(test.Rows(work_file::kEmitters).at(0).SomaDrop, 6.0F);
  EXPECT_TRUE(test.study.emitters_unchecked);
  EXPECT_FALSE(test.study.results_valid);
  EXPECT_TRUE(HasEnded());
}

TEST_F(OutletForm, AsksBeforeASectionThatFeedsOthersNowLosesItsValues) {
  Put({"1/ANT 5m", "2/1 5m outlet 300 l/h 5mwg", "3/2 5m", "4/1 5m outlet 200 l/h 8mwg"});
  Open();
  EXPECT_EQ(Fields(), "3|3/2|||");
  TypeOutlet("250", "6", "1");
  test.prompter.Expect("...! Π Ρ Ο Σ Ο Χ Η !...", Answer::kNo);
  Click(form, form.SSCmdBack);
  const Box& asked = test.prompter.boxes().back();
  EXPECT_EQ(asked.lines.at(1), "Τμήμα 2 ( 2/1 ) : Παροχή 300 Lit/h, Πίεση Ροής 5 m w.g.");
  EXPECT_EQ(asked.style, box_style::kDefaultNo);
  EXPECT_TRUE(navigator.log.empty());
  EXPECT_EQ(test.Row(2).SomaDrop, 5.0F);
  test.prompter.Expect("...! Π Ρ Ο Σ Ο Χ Η !...", Answer::kYes);
  Click(form, form.SSCmdBack);
  EXPECT_TRUE(HasEnded());
  EXPECT_EQ(test.Column(&SectionRow::SomaDrop), (std::vector<float>{0, 0, 6, 8}));
}

TEST_F(OutletForm, FillsThreeFieldsFromMemory) {
  Open();
  desk.screens.outlet_memory = {400, kNoMemory, 7.5F};
  form.Press(Plain(KeyCode::kF12));
  EXPECT_EQ(Fields(), "2|2/1|400|5|7,5");
  EXPECT_EQ(form.focus(), &form.Text5);
  form.Derive();
  EXPECT_EQ(form.LblMemoryRest.text, "— m w.g. · 7,5 m");
}

TEST_F(OutletForm, ALoneSectionAndANetworkWithoutLeavesCanBeLeft) {
  Put({"1/ANT 5m"});
  Open();
  EXPECT_EQ(form.Text1.text, "1");
  EXPECT_TRUE(form.Press(Plain(KeyCode::kEscape)));
  EXPECT_TRUE(HasEnded());
  Put({"1/2 5m", "2/1 5m", "3/2 5m", "4/3 5m", "5/4 5m"});
  test.ChangeRow(3, [](SectionRow& row) { row.Name = MakeName("3", "5"); });
  test.ChangeRow(2, [](SectionRow& row) { row.Name = MakeName("2", "1"); });
  test.ChangeRow(4, [](SectionRow& row) { row.Name = MakeName("4", "2"); });
  test.ChangeRow(5, [](SectionRow& row) { row.Name = MakeName("5", "3"); });
  navigator.log.clear();
  FrmYpodo circle(desk);
  circle.Load();
  circle.Press(Ctrl(KeyCode::kEnd));
  circle.Press(Plain(KeyCode::kEscape));
  EXPECT_TRUE(HasEnded());
}

}  // namespace
}  // namespace kalvo

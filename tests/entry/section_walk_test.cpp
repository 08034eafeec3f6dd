#include <gtest/gtest.h>

#include "entry/emitters/emitter_forms.h"
#include "entry/emitters/frm_soma.h"
#include "entry/sections/section_entry_forms.h"
#include "entry/sections/sheet_columns.h"
#include "tests/entry/section_user.h"
#include "tests/support/walk.h"

namespace kalvo {
namespace {

// Answers by chance.
class CarelessPrompter : public Prompter {
 public:
  explicit CarelessPrompter(Dice& dice) : dice_(dice) {}
  Answer ShowMessage(int /*code*/, const Study& /*study*/) override { return Any(); }
  Answer Ask(const Box& box) override { return StyleAsks(box.style) ? Any() : Answer::kNone; }

 private:
  Answer Any() {
    return std::array{Answer::kYes, Answer::kNo, Answer::kCancel}.at(
        static_cast<std::size_t>(dice_.Below(3)));
  }
  Dice& dice_;
};

// A user without a plan in the form, in the sheet, and from one to the other.
class Rambler {
 public:
  Rambler(SectionUser& user, Dice& dice) : user_(user), dice_(dice) {
    user.user.navigator.on_modal = [](std::string_view) {};
  }

  void Act() {
    if (user_.sheet) {
      ActInSheet();
    } else {
      ActInForm();
    }
  }

 private:
  void TypeSome() {
    for (int i = dice_.Below(4); i >= 0; --i) user_.Press(Typed(dice_.Of(kTyped)));
  }

  void ActInSheet() {
    switch (dice_.Below(8)) {
      case 0:
        return user_.Press(dice_.Below(2) == 0 ? Shift(KeyCode::kF12) : kCtrlAltShift);
      case 1:
        return user_.Press(dice_.Of(kKeys));
      case 2:
        return user_.Press(ShiftTyped(static_cast<char32_t>(U'A' + dice_.Below(20))));
      case 3:
        return user_.Press(Ctrl(dice_.Below(2) == 0 ? KeyCode::kInsert : KeyCode::kDelete));
      case 4:
        return user_.sheet->fpSpread1.GoTo(
            {dice_.Below(user_.sheet->draft().Count() + 1), dice_.Below(kSheetColumns)});
      default:
        TypeSome();
        user_.Press(KeyCode::kEnter);
    }
  }

  void ActInForm() {
    FrmData& form = *user_.form;
    Command* const commands[] = {&form.Cmd_Ins,  &form.Cmd_Ins,  &form.Cmd_Del,      &form.Cmd_Same,
                                 &form.CmdANT,   &form.CmdNoTau, &form.Cmd_First,    &form.Cmd_Last,
                                 &form.Cmd_Prev, &form.Cmd_Next, &form.CmdShift_F12, &form.Cmd_End};
    switch (dice_.Below(10)) {
      case 0:
      case 1: {
        Command* const command = commands[dice_.Below(static_cast<int>(std::size(commands)))];
        if (command->visible) user_.Run(*command);
        return;
      }
      case 2:
        return user_.Press(ShiftTyped(static_cast<char32_t>(U'A' + dice_.Below(20))));
      case 3:
        return GoTo();
      case 4:
      case 5:
        return user_.Press(dice_.Of(kKeys));
      case 6:
        form.Idle(dice_.Below(8));
        return;
      case 7:
        return Paste(form);
      default:
        TypeSome();
        if (dice_.Below(2) == 0) user_.Press(KeyCode::kEnter);
    }
  }

  void GoTo() {
    const auto number = static_cast<std::int16_t>(
        1 + dice_.Below(static_cast<int>(user_.user.test.Rows().size()) + 1));
    user_.user.navigator.on_modal = [&](std::string_view screen) {
      if (screen != screen::kGoTo) return;
      user_.study().CurrentRow = number;
      user_.desk.questions.section_chosen = true;
    };
    user_.Press(KeyCode::kF5);
  }

  void Paste(FrmData& form) {
    auto* field = dynamic_cast<Field*>(form.focus());
    if (field != nullptr) PasteInto(form, *field, dice_.Of(kPasted));
    form.Derive();
  }

  inline static const std::u32string kTyped = U"0123456789,.-aΑα ";
  inline static const std::vector<std::string> kPasted = {
      "", "1", "ANT", "ΑΝΤ", "2,5", "1.2.3", "32768", std::string(400, '9'), "a\tb\nc", "-3", "日"};
  inline static const std::vector<Key> kKeys = {Plain(KeyCode::kPageDown),
                                                Plain(KeyCode::kPageDown),
                                                Plain(KeyCode::kPageUp),
                                                Ctrl(KeyCode::kHome),
                                                Ctrl(KeyCode::kEnd),
                                                Ctrl('Z'),
                                                Ctrl('Z'),
                                                Ctrl('Z'),
                                                Ctrl('Y'),
                                                Plain(KeyCode::kEnter),
                                                Ctrl('L'),
                                                Ctrl('D'),
                                                Plain(KeyCode::kDown),
                                                Plain(KeyCode::kDelete),
                                                Plain(KeyCode::kF1)};

  SectionUser& user_;
  Dice& dice_;
};

// Some emitters, typed and taken away by chance, to an end of any kind.
void VisitEmitters(SectionUser& user, Dice& dice) {
  FrmSoma form(user.desk);
  form.Load();
  form.Derive();
  const auto press = [&form](const Key& key) {
    PressKey(form, key);
    form.Derive();
  };
  for (int i = dice.Below(20); i > 0; --i) {
    const int deed = dice.Below(12);
    if (deed == 0) press(Ctrl(KeyCode::kDelete));
    if (deed == 1) press(Plain(KeyCode::kF6));
    for (int digits = dice.Below(3); digits > 0; --digits) {
      press(Typed(static_cast<char32_t>(U'0' + dice.Below(10))));
    }
    press(Plain(KeyCode::kEnter));
  }
  if (dice.Below(3) != 0) press(Plain(KeyCode::kEscape));
  if (!user.LastScreen().starts_with("close")) press(kAltShift);
}

struct Beginning {
  std::string rows;
  std::string emitters;
  bool unsaved = false;
  bool valid = false;
  bool unchecked = false;
  bool name_errors = false;
  int plant = 0;
};

Beginning BeginningOf(const TestBench& test) {
  const Study& study = test.study;
  return {test.Bytes(),        test.Bytes(work_file::kEmitters), study.unsaved_changes,
          study.results_valid, study.emitters_unchecked,         study.NameErrors,
          study.plant_section};
}

// Rows and draft agree in all but the row on show.
void ExpectAgreement(const SectionUser& user, const Beginning& first) {
  if (!user.form) return;
  const SheetImage rows =
      ImageOfRows(user.user.test.Rows(), user.user.test.study.system_kind, user.desk.separators);
  const SectionDraft& draft = user.form->draft();
  // The rows wait until nothing is missing or wrong.
  if (!MissingLines(draft).empty()) return;
  if (user.desk.screens.section_sitting->FirstWrongRow()) return;
  const int shown = user.user.test.study.CurrentRow - 1;
  for (int row = 0; row < static_cast<int>(rows.rows.size()); ++row) {
    if (row == shown) continue;
    SheetRow there = draft.At(row);
    there.texts[sheet_column::kSlash] = kSlashText;
    ASSERT_EQ(there.texts, rows.rows[static_cast<std::size_t>(row)].texts) << row;
  }
  if (first.unchecked) return;  // the list says more than the rows
  for (const SectionRow& emitter : user.user.test.Rows(work_file::kEmitters)) {
    if (emitter.RecordNumber == 0) continue;
    ASSERT_EQ(user.user.test.Row(emitter.RecordNumber).SomaDrop, emitter.SomaDrop);
  }
}

TEST(SectionWalk, RowsAndDraftAgreeAndUndoLeadsToTheStart) {
  for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
    const bool open = kind == SystemKind::kOpen;
    Dice dice(open ? 7 : 3);
    CarelessPrompter prompter(dice);
    SectionUser user(kind,
                     open ? std::vector<std::string_view>{"1/ANT 5m", "2/1 5m", "3/1 4m", "4/2 3m"}
                          : std::vector<std::string_view>{"ANT/1 5m", "1/2 5m 90l/h soma 800mm",
                                                          "2/3 4m 80l/h soma 700mm", "3/ANT 4m"},
                     &prompter);
    user.study().results_valid = true;
    user.study().plant_section = 2;
    user.Open();
    Beginning first = BeginningOf(user.user.test);
    Rambler rambler(user, dice);
    for (int step = 0, steps = WalkSteps(400); step < steps; ++step) {
      rambler.Act();
      if (user.front() == nullptr) {  // entry has ended, or gone to the emitters
        ASSERT_FALSE(user.user.test.Rows().empty()) << step;
        if (user.LastScreen() == "show FrmSoma") VisitEmitters(user, dice);
        user.desk.screens.back_to_sheet = false;
        first = BeginningOf(user.user.test);
        user.Open();
      }
      ASSERT_NO_FATAL_FAILURE(ExpectAgreement(user, first)) << step;
    }
    if (user.sheet) {
      user.sheet->fpSpread1.GiveUp();
      while (user.sheet->draft().history().CanUndo()) user.Press(Ctrl('Z'));
      user.Run(user.sheet->Cmd_Exit);
    } else {
      while (user.form->draft().history().CanUndo()) user.Press(Ctrl('Z'));
    }
    const Beginning last = BeginningOf(user.user.test);
    EXPECT_EQ(last.rows, first.rows);
    EXPECT_EQ(last.emitters, first.emitters);
    EXPECT_EQ(last.unsaved, first.unsaved);
    EXPECT_EQ(last.valid, first.valid);
    EXPECT_EQ(last.unchecked, first.unchecked);
    EXPECT_EQ(last.name_errors, first.name_errors);
    EXPECT_EQ(last.plant, first.plant);
  }
}

}  // namespace
}  // namespace kalvo

#include <gtest/gtest.h>

#include <set>

#include "entry/emitters/emitter_forms.h"
#include "entry/emitters/frm_f12.h"
#include "entry/emitters/frm_soma.h"
#include "entry/emitters/frm_ypodo.h"
#include "tests/support/test_desk.h"
#include "tests/support/walk.h"

namespace kalvo {
namespace {

using Records = std::vector<SectionRow>;

// Says anything, and notes whether it was "yes".
class ErraticUser : public Prompter {
 public:
  explicit ErraticUser(Dice& dice) : dice_(dice) {}

  Answer ShowMessage(int code, const Study& /*study*/) override {
    return AsksByCode(code) ? AnyAnswer() : Answer::kNone;
  }
  Answer Ask(const Box& box) override { return StyleAsks(box.style) ? AnyAnswer() : Answer::kNone; }

  int agreed = 0;

 private:
  Answer AnyAnswer() {
    constexpr Answer kAnswers[] = {Answer::kYes, Answer::kNo, Answer::kCancel};
    const Answer answer = dice_.Of(kAnswers);
    agreed += answer == Answer::kYes ? 1 : 0;
    return answer;
  }

  Dice& dice_;
};

// A user without a plan: any keys, commands, pastes, in any order. The desk is one of its own, over
// the same study, for that user's answers.
class EmitterWalk : public TestDesk {
 public:
  EmitterWalk(SystemKind kind, unsigned seed) : TestDesk(kind), dice(seed) {}

  // What a window does with an action.
  template <typename Action>
  void Do(Form& form, Action&& action) {
    try {
      action();
    } catch (const std::exception& cause) {
      form.TellBroken(cause);
    }
    form.Derive();
  }

  void PressKey(Form& form, const Key& key) {
    Do(form, [&] {
      if (form.Press(key)) return;
      auto* field = dynamic_cast<Field*>(form.focus());
      if (field != nullptr && !field->locked) EditText(form, *field, key);
    });
  }

  void RunAny(Form& form, const std::vector<Command*>& commands) {
    Do(form, [&] { form.Run(*dice.Of(commands)); });
  }

  void FocusAny(Form& form, const std::vector<Control*>& parts) {
    Do(form, [&] { form.MoveFocus(dice.Of(parts)); });
  }

  void TypeAny(Form& form) {
    static const std::u32string kTyped = U"0123456789123456789,.-aαA ";
    for (int i = dice.Below(4); i >= 0; --i) PressKey(form, Typed(dice.Of(kTyped)));
    if (dice.Below(3) != 0) PressKey(form, Plain(KeyCode::kEnter));
  }

  // The form of memory values comes up, is typed into, and goes.
  void OpenMemory(Form& form) {
    navigator.Expect(screen::kMemoryValues, [this] {
      FrmF12 memory(desk);
      memory.Load();
      for (int i = dice.Below(3); i >= 0; --i) TypeAny(memory);
      static const std::vector<Key> kEnds = {Ctrl(KeyCode::kEnter), Ctrl(KeyCode::kEnter),
                                             Plain(KeyCode::kEscape), Ctrl(KeyCode::kDelete)};
      PressKey(memory, dice.Of(kEnds));
    });
    PressKey(form, kAltCtrl);
  }

  [[nodiscard]] bool HasClosed(std::string_view screen) const {
    return !navigator.log.empty() && navigator.log.back() == "close " + std::string(screen);
  }

  void EditText(Form& form, Field& field, const Key& key) {
    const std::string before = field.whole_selected ? "" : field.text;
    if (key.IsText() && key.character != 0) {
      std::string piece;
      AppendUtf8(piece, key.character);
      form.Type(field, {before, piece, ""});
    } else if (key == Plain(KeyCode::kBackspace)) {
      form.Type(field, {FirstCharacters(before, before.empty() ? 0 : before.size() - 1), "", ""});
    } else if (key == Ctrl('V')) {
      form.Type(field, {before, clipboard.Text(), ""});
    }
  }

  [[nodiscard]] Records Stored() const { return test.Rows(work_file::kEmitters); }

  Dice dice;
  ErraticUser erratic{dice};
  Workbench bench{test.study, test.workspace, test.pipes, erratic};
  Desk desk{bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};
};

bool SameValues(const SectionRow& a, const SectionRow& b) {
  return a.RecordNumber == b.RecordNumber && a.WaterFlow == b.WaterFlow &&
         a.SomaDrop == b.SomaDrop && a.HeightDiff == b.HeightDiff;
}

// "Σώμα 12" is 12, counted from 0.
std::size_t InHand(const Label& current) {
  return std::stoul(current.text.substr(current.text.find(' '))) - 1;
}

class EmitterWanderer : public EmitterWalk {
 public:
  explicit EmitterWanderer(unsigned seed) : EmitterWalk(SystemKind::kClosed, seed) {
    test.PutNetwork({"ANT/1 10m", "1/2 5m", "2/3 5m soma 300 l/h 500mm", "3/4 5m", "4/5 5m",
                     "5/6 4m soma 200 l/h 400mm", "6/7 3m", "7/8 3m", "8/9 3m", "9/10 3m",
                     "10/11 3m soma 100 l/h 300mm", "11/ANT 6m"});
    Open();
  }

  void Step() {
    if (HasClosed(screen::kEmitters)) return Open();
    const Records before = Stored();
    const std::size_t in_hand = InHand(form_->LblCurrent);
    const int agreed = erratic.agreed;
    const bool removing = Act();
    CheckFiles();
    Records kept = before;
    if (removing && erratic.agreed > agreed && in_hand < kept.size()) {
      kept.erase(kept.begin() + static_cast<std::ptrdiff_t>(in_hand));
      ASSERT_EQ(Stored().size(), kept.size());
      CheckKept(kept, kept.size());
    } else {
      CheckKept(kept, in_hand);
    }
    if (HasClosed(screen::kEmitters)) {
      CheckEnd();
    } else {
      ASSERT_EQ(test.Bytes(), rows_) << "the rows change at the end only";
    }
  }

 private:
  void Open() {
    Records records = Stored();
    // As after the deletion of its section in between.
    if (!records.empty() && dice.Below(4) == 0) {
      records[static_cast<std::size_t>(dice.Below(static_cast<int>(records.size())))].RecordNumber =
          0;
      ASSERT_TRUE(test.workspace.Rows(work_file::kEmitters).WriteAll(records).ok());
      test.workspace.Delete(work_file::kEmittersInWork);
    }
    navigator.log.clear();
    desk.screens.edit_mode = dice.Below(3) != 0;
    form_ = std::make_unique<FrmSoma>(desk);
    form_->Load();
    form_->Derive();
    rows_ = test.Bytes();
  }

  // True: the record in hand was to be removed.
  bool Act() {
    static const std::vector<Key> kKeys = {
        Ctrl(KeyCode::kEnd),       Ctrl(KeyCode::kEnd), Plain(KeyCode::kF12),
        Plain(KeyCode::kInsert),   Ctrl('V'),           Plain(KeyCode::kEscape),
        Plain(KeyCode::kF6),       Plain(KeyCode::kF1), Plain(KeyCode::kEnter),
        Plain(KeyCode::kBackspace)};
    FrmSoma& form = *form_;
    switch (dice.Below(14)) {
      case 0:
        PressKey(form, Ctrl(KeyCode::kDelete));
        return true;
      case 1:
        CopyBlock();
        PressKey(form, Ctrl('V'));
        break;
      case 2:
        CopyBlock();
        RunAny(form, {&form.CmdPaste});
        break;
      case 3:
        ChooseLine();
        break;
      case 4:
        OpenMemory(form);
        break;
      case 5:
        RunAny(form, {&form.SSCmdNext, &form.SSCmdNext, &form.SSCmdBack, &form.CmdFill});
        break;
      case 6:
        if (dice.Below(8) == 0) PressKey(form, kAltShift);
        break;
      case 7:
      case 8:
        PressKey(form, dice.Of(kKeys));
        break;
      case 9:
        FocusAny(form, {&form.Text1, &form.Text3, &form.Text4});
        break;
      case 10:
        TypeRecord();
        break;
      default:
        TypeAny(form);
    }
    return false;
  }

  void TypeRecord() {
    for (Field* field : {&form_->Text1, &form_->Text3, &form_->Text4}) {
      if (!form_->MoveFocus(field)) return;
      form_->Type(*field, {"", std::to_string(1 + dice.Below(14)), ""});
    }
    PressKey(*form_, Ctrl(KeyCode::kEnd));
  }

  void CopyBlock() {
    static const std::vector<std::string> kCells = {
        "2",  "4", "5", "7",   "8",     "9",   "10",   "",    "12", "13",
        "-1", "0", "x", "1,5", "1.500", "2.5", "  6 ", "1e9", "日", std::string(60, '9')};
    std::string text;
    for (int rows = dice.Below(4); rows >= 0; --rows) {
      for (int cells = dice.Below(8) == 0 ? dice.Below(5) : 2; cells >= 0; --cells) {
        text += dice.Of(kCells) + (cells > 0 ? "\t" : dice.Below(2) == 0 ? "\n" : "\r\n");
      }
    }
    clipboard.SetText(text);
  }

  void ChooseLine() {
    if (form_->LstSoma.row_count() == 0) return;
    form_->LstSoma.MoveTo({dice.Below(form_->LstSoma.row_count()), 0});
    form_->Focus(form_->LstSoma);
    PressKey(*form_, Plain(KeyCode::kEnter));
  }

  void CheckFiles() {
    const Records records = Stored();  // whole records, or the test fails
    if (test.workspace.Exists(work_file::kEmittersInWork)) {
      ASSERT_EQ(test.Bytes(work_file::kEmittersInWork), test.Bytes(work_file::kEmitters));
    }
    std::set<int> sections;
    for (const SectionRow& record : records) {
      ASSERT_TRUE(record.RecordNumber == 0 || sections.insert(record.RecordNumber).second)
          << record.RecordNumber << " twice";
    }
  }

  // All are still there, in their order, as they were but for one.
  void CheckKept(const Records& kept, std::size_t but) {
    const Records now = Stored();
    ASSERT_GE(now.size(), kept.size());
    for (std::size_t i = 0; i < kept.size(); ++i) {
      ASSERT_TRUE(i == but || SameValues(now[i], kept[i]))
          << i << ": section " << now[i].RecordNumber << ", was " << kept[i].RecordNumber;
    }
  }

  // The rows hold the list's flows and drops, no others; left at once they are as they were.
  void CheckEnd() {
    if (test.study.emitters_unchecked) {
      ASSERT_EQ(test.Bytes(), rows_);
      return;
    }
    Records expected(test.Rows().size());
    for (const SectionRow& record : Stored()) {
      ASSERT_NE(record.RecordNumber, 0);
      ByNumber(expected, record.RecordNumber) = record;
    }
    int number = 0;
    for (const SectionRow& row : test.Rows()) {
      const SectionRow& of = ByNumber(expected, ++number);
      ASSERT_EQ(row.WaterFlow, of.WaterFlow) << number;
      ASSERT_EQ(row.SomaDrop, of.SomaDrop) << number;
    }
    ASSERT_EQ(test.study.EmitterCount, static_cast<int>(Stored().size()));
    ++ends;
  }

  std::unique_ptr<FrmSoma> form_;
  std::string rows_;

 public:
  int ends = 0;
};

class OutletWanderer : public EmitterWalk {
 public:
  explicit OutletWanderer(unsigned seed) : EmitterWalk(SystemKind::kOpen, seed) {
    test.PutNetwork({"1/ANT 5m", "2/1 5m", "3/1 5m outlet 100 l/h 5mwg", "4/2 3m", "5/2 3m",
                     "6/4 3m 2up outlet 200 l/h 8mwg", "7/4 2m", "8/5 2m"});
    Open();
  }

  void Step() {
    if (HasClosed(screen::kOutlets)) return Open();
    const Records before = Stored();
    const std::size_t in_hand = InHand(form_->LblCurrent);
    Act();
    const Records now = Stored();
    ASSERT_EQ(now.size(), before.size());
    for (std::size_t i = 0; i < now.size(); ++i) {
      ASSERT_EQ(now[i].Name, before[i].Name);
      ASSERT_TRUE(i == in_hand || SameValues(now[i], before[i])) << i;
    }
    const bool ended = HasClosed(screen::kOutlets);
    CheckRows(now, ended && !test.study.emitters_unchecked);
    ends += ended ? 1 : 0;
  }

 private:
  void Open() {
    navigator.log.clear();
    desk.screens.edit_mode = dice.Below(3) != 0;
    form_ = std::make_unique<FrmYpodo>(desk);
    form_->Load();
    form_->Derive();
    rows_ = test.Rows();
  }

  void Act() {
    static const std::vector<Key> kKeys = {Ctrl(KeyCode::kEnd),        Plain(KeyCode::kF12),
                                           Plain(KeyCode::kInsert),    Plain(KeyCode::kEscape),
                                           Plain(KeyCode::kF1),        Plain(KeyCode::kEnter),
                                           Plain(KeyCode::kBackspace), Ctrl('V')};
    FrmYpodo& form = *form_;
    switch (dice.Below(9)) {
      case 0:
        return OpenMemory(form);
      case 1:
        return RunAny(form, {&form.SSCmdNext, &form.SSCmdNext, &form.SSCmdBack, &form.CmdFill});
      case 2:
        if (dice.Below(8) == 0) PressKey(form, kAltShift);
        return;
      case 3:
        return PressKey(form, dice.Of(kKeys));
      case 4:
        return FocusAny(form, {&form.Text3, &form.Text4, &form.Text5});
      case 5:
        clipboard.SetText(dice.Of(std::vector<std::string>{"1.500,5", "x", "", "3\n", "9\t9"}));
        return PressKey(form, Ctrl('V'));
      default:
        TypeAny(form);
    }
  }

  // Rows are as the form found them, but for the outlets' values: those of the list.
  void CheckRows(const Records& outlets, bool checked) {
    Records expected = rows_;
    for (const SectionRow& outlet : outlets) {
      SectionRow& row = ByNumber(expected, outlet.RecordNumber);
      if (!checked && !HasOutletValues(outlet)) continue;
      row.WaterFlow = outlet.WaterFlow;
      row.SomaDrop = outlet.SomaDrop;
      row.HeightDiff = outlet.HeightDiff;
    }
    const Records rows = test.Rows();
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      ASSERT_TRUE(SameValues(rows[i], expected[i])) << i;
      ASSERT_EQ(rows[i].Name, expected[i].Name);
      ASSERT_EQ(rows[i].Length, expected[i].Length);
    }
  }

  std::unique_ptr<FrmYpodo> form_;
  Records rows_;

 public:
  int ends = 0;
};

template <typename Wanderer>
void Walk(Wanderer&& user) {
  for (int step = 0, steps = WalkSteps(1'500); step < steps; ++step) {
    user.Step();
    if (::testing::Test::HasFatalFailure()) FAIL() << "at step " << step;
  }
  EXPECT_GT(user.ends, 0);
}

TEST(EmitterWalk, KeepsEveryEmitterAndTheRowsTillTheEnd) { Walk(EmitterWanderer(7)); }

TEST(EmitterWalk, OutletsAreTheRowsValues) { Walk(OutletWanderer(3)); }

}  // namespace
}  // namespace kalvo

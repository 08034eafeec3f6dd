#include <gtest/gtest.h>

#include "tests/entry/winter_user.h"
#include "tests/support/failing_disk.h"
#include "tests/support/walk.h"

namespace kalvo {
namespace {

// Says anything to any question.
class WinterAnswers : public Prompter {
 public:
  explicit WinterAnswers(Dice& dice) : dice_(dice) {}

  Answer ShowMessage(int /*code*/, const Study& /*study*/) override { return Answer::kNone; }
  Answer Ask(const Box& box) override {
    constexpr Answer kAnswers[] = {Answer::kYes, Answer::kNo, Answer::kCancel};
    return StyleAsks(box.style) ? dice_.Of(kAnswers) : Answer::kNone;
  }

 private:
  Dice& dice_;
};

// A user without a plan at the winter form: keys, pastes, runs, looks at results, closes.
class WinterWanderer {
 public:
  WinterWanderer(WinterUser& winter, Dice& dice) : winter_(winter), dice_(dice) {}

  int runs = 0;
  int looks = 0;
  int closes = 0;

  void Act() {
    FrmWinter& form = *winter_.form;
    switch (dice_.Below(14)) {
      case 0:
        return Paste();
      case 1:
        return winter_.GoTo(dice_.Below(form.fpSpread1.row_count()), dice_.Below(7));
      case 2:
        return TypeInto(form, form.TxtMeanT, dice_.Of(kTemperatures));
      case 3:
        return Calculate();
      case 4:
        return Look();
      case 5:
      case 6:
        return winter_.Press(dice_.Of(kKeys));
      case 7:
        if (dice_.Below(10) == 0) return CloseAndOpen();
        return winter_.form->LostFocus();
      default:
        form.MoveFocus(&form.fpSpread1);
        for (int i = dice_.Below(4); i >= 0; --i) winter_.Press(Typed(dice_.Of(kTyped)));
        if (dice_.Below(2) == 0) winter_.Press(KeyCode::kEnter);
    }
  }

 private:
  void Paste() {
    std::string text;
    for (int rows = dice_.Below(4); rows >= 0; --rows) {
      for (int cells = dice_.Below(8); cells >= 0; --cells) {
        text += dice_.Of(kTexts);
        text += cells > 0 ? "\t" : "\n";
      }
    }
    winter_.user.clipboard.SetText(text);
    winter_.form->MoveFocus(&winter_.form->fpSpread1);
    winter_.Press(Ctrl('V'));
  }

  void Calculate() {
    winter_.form->fpSpread1.Accept();
    if (dice_.Below(3) != 0) {  // values that run without a question
      winter_.GoTo(0, 4);
      winter_.user.clipboard.SetText("5\t200\t90\n4\t100\t80");
      winter_.Press(Ctrl('V'));
      TypeInto(*winter_.form, winter_.form->TxtMeanT, "55");
    } else {
      winter_.GoTo(dice_.Below(2), 5 + dice_.Below(2));
      winter_.Press(KeyCode::kDelete);
    }
    winter_.Press(Ctrl(KeyCode::kEnter));
    runs += winter_.form->LblPump.visible ? 1 : 0;
  }

  void Look() {
    winter_.Run(winter_.form->Cmd_Res);
    if (!winter_.desk().screens.WinterPump) return;
    ++looks;
    EXPECT_NE(winter_.test().Bytes(), summer_);
    EXPECT_EQ(winter_.test().study.MeanTemp, 55.0F);
    winter_.form->Idle(6);
    winter_.form->Activate();
    winter_.form->Derive();
  }

  void CloseAndOpen() {
    winter_.user.navigator.log.clear();
    winter_.Run(winter_.form->Cmd_Close);
    if (winter_.user.navigator.log.empty()) return;
    ++closes;
    EXPECT_FALSE(winter_.IsKept());
    EXPECT_FALSE(winter_.test().workspace.Exists(work_file::kSummerRows));
    winter_.Open();
  }

  inline static const std::vector<Key> kKeys = {Plain(KeyCode::kLeft),
                                                Plain(KeyCode::kRight),
                                                Plain(KeyCode::kUp),
                                                Plain(KeyCode::kDown),
                                                Shift(KeyCode::kDown),
                                                Shift(KeyCode::kRight),
                                                Plain(KeyCode::kTab),
                                                Shift(KeyCode::kTab),
                                                Plain(KeyCode::kEnter),
                                                Plain(KeyCode::kF2),
                                                Plain(KeyCode::kF5),
                                                Plain(KeyCode::kF10),
                                                Plain(KeyCode::kDelete),
                                                Plain(KeyCode::kBackspace),
                                                Ctrl('A'),
                                                Ctrl('C'),
                                                Ctrl(KeyCode::kHome),
                                                Plain(KeyCode::kPageDown)};
  inline static const std::u32string kTyped = U"0123456789,.-aΑ ";
  inline static const std::vector<std::string> kTexts = {
      "", "1", "25", "1,5", "2.5", "-3", "x", "1.234,5", std::string(400, '9'), "日", "1.2.3"};
  inline static const std::vector<std::string> kTemperatures = {"", "55", "30", "4,5", "1,,", "x9"};

  WinterUser& winter_;
  Dice& dice_;
  std::string summer_ = winter_.test().Bytes();
};

// What a program that starts now would begin with.
std::string BeginsWith(WinterUser& winter) {
  FrmWinter next(winter.desk());
  next.Load();
  return WinterUser::CellsOf(next) + " at " + next.TxtMeanT.text;
}

TEST(WinterWalk, KeepsWhatIsTypedAndNeverTouchesSummer) {
  WinterUser winter;
  Dice dice(17);
  WinterAnswers answers(dice);
  FailingDisk disk(winter.test().work_disk);
  winter.WorkOn(disk, answers);
  winter.Open();
  const std::string summer = winter.test().Bytes();
  const Study study = winter.test().study;
  WinterWanderer user(winter, dice);
  for (int step = 0, steps = WalkSteps(5000); step < steps; ++step) {
    user.Act();
    ASSERT_EQ(winter.test().Bytes(), summer) << step;
    ASSERT_EQ(winter.test().study.MeanTemp, study.MeanTemp) << step;
    ASSERT_EQ(winter.test().study.EmitterTable, study.EmitterTable) << step;
    if (step % 10 != 0) continue;
    winter.form->fpSpread1.Accept();
    winter.form->Idle(0.5);
    winter.form->Derive();
    const FrmWinter& form = *winter.form;
    const std::string temperature =
        FormatNumber(ToSingle(form.TxtMeanT.Number({',', '.'})), Separators{',', '.'});
    ASSERT_EQ(BeginsWith(winter), winter.Cells() + " at " + (temperature == "0" ? "" : temperature))
        << step;
    if (form.LblPump.visible || form.LblVoid.visible) {
      const SectionRow first = winter.test().Rows(work_file::kWinter).at(0);
      ASSERT_EQ(first.DP != 0, form.LblPump.visible) << step;
    }
  }
  EXPECT_GT(user.runs, 50);
  EXPECT_GT(user.looks, 10);
  EXPECT_GT(user.closes, 5);
}

}  // namespace
}  // namespace kalvo

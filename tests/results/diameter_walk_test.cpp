#include <gtest/gtest.h>

#include <memory>

#include "engine/kept_results.h"
#include "engine/rerun.h"
#include "results/frm_avai_d.h"
#include "results/frm_chang.h"
#include "results/frm_compare.h"
#include "results/frm_res.h"
#include "results/frm_res_gn.h"
#include "results/frm_res_sheet.h"
#include "study/digest.h"
#include "tests/results/results_desk.h"
#include "tests/support/walk.h"

namespace kalvo {
namespace {

// Answers by chance, and notes what was asked.
class ChancePrompter : public Prompter {
 public:
  explicit ChancePrompter(Dice& dice) : dice_(dice) {}
  Answer ShowMessage(int code, const Study& /*study*/) override {
    const bool yes_no = code == 306 || code == 307;
    if (code != 304 && !yes_no) return Answer::kNone;
    constexpr std::array kAnswers = {Answer::kYes, Answer::kNo, Answer::kCancel};
    asked.emplace_back(code, kAnswers.at(static_cast<std::size_t>(dice_.Below(yes_no ? 2 : 3))));
    return asked.back().second;
  }
  Answer Ask(const Box& box) override {
    boxes.push_back(box);
    return Answer::kNone;
  }

  std::vector<std::pair<int, Answer>> asked;
  std::vector<Box> boxes;

 private:
  Dice& dice_;
};

// What a step back has to bring: the rows and all that follows from them.
struct State {
  std::vector<std::string> diameters;
  std::string all;
  bool waits = false;
};

// A user without a plan in the results of a study, with every window that they lead to.
class Wanderer : ResultsDesk {
 public:
  Wanderer(SystemKind kind, Method method, unsigned seed)
      : ResultsDesk(kind), dice_(seed), method_(method) {
    CalculateAnew(method);
    walk.screens.results_begin = true;
    navigator.on_modal = [this](std::string_view name) { UseModal(name); };
    walk.navigator.Show(screen::kResultsSheet);
    FollowWindows();
  }

  void Act() {
    prompter.asked.clear();
    prompter.boxes.clear();
    if (pump && pump_shows_) {
      Run(*pump, pump->SSCommand1);
    } else if (list && dice_.Below(3) > 0) {
      ActInList();
    } else if (one) {
      ActInOne();
    } else {
      ActInSheet();
    }
    FollowAnswers();
    FollowWindows();
    ExpectTrueResults();
  }

 private:
  // Windows as they were asked for; what a form asks for while it opens comes after.
  void FollowWindows() {
    while (!navigator.log.empty()) {
      for (const std::string& line : TakeLog()) {
        const std::string name = line.substr(line.find(' ') + 1);
        if (line.starts_with("show")) Open(name);
        if (line.starts_with("close")) Shut(name);
        if (line.starts_with("hide") && name == screen::kPump) pump_shows_ = false;
      }
    }
    for (Form* form : std::initializer_list<Form*>{one.get(), sheet.get(), list.get()}) {
      if (form != nullptr) form->Derive();
    }
  }
  template <typename FormType>
  void Make(std::unique_ptr<FormType>& form) {
    if (form) return;
    form = std::make_unique<FormType>(walk);
    form->Load();
    form->Activate();
  }
  void Open(const std::string& name) {
    if (name == screen::kResults) Make(one);
    if (name == screen::kResultsSheet) Make(sheet);
    if (name == screen::kOneDiameter) Make(list);
    if (name == screen::kPump) {
      Make(pump);
      pump_shows_ = true;
    }
    if (name != screen::kMain) return;
    // The results were left; the user opens them again, or those of a new calculation.
    if (dice_.Below(2) == 0) {
      EXPECT_EQ(RunPasses(bench, method_), RunEnd::kCalculated);
    }
    undo_.clear();
    redo_.clear();
    one.reset();
    sheet.reset();
    walk.screens.results_begin = true;
    const bool in_sheet = dice_.Below(2) == 0;
    walk.screens.results_view = in_sheet ? ResultsView::kSheet : ResultsView::kOne;
    walk.navigator.Show(in_sheet ? screen::kResultsSheet : screen::kResults);
  }
  void Shut(const std::string& name) {
    if (name == screen::kResults) one.reset();
    if (name == screen::kResultsSheet) sheet.reset();
    if (name == screen::kOneDiameter) list.reset();
    if (name == screen::kPump) pump.reset();
  }

  static void Run(Form& form, Command& command) { form.Run(command); }

  void ActInOne() {
    Command* const commands[] = {&one->CmdNext,      &one->CmdPrev, &one->CmdLast,
                                 &one->CmdFirst,     &one->CmdChD,  &one->CmdChangeOne,
                                 &one->CmdChangeOne, &one->CmdNewD, &one->CmdChangeMany,
                                 &one->CmdDiff,      &one->CmdPump, &one->changes.CmdCompare,
                                 &one->SSCommand1,   &one->CmdBack};
    const int chosen = dice_.Below(20);
    if (chosen < static_cast<int>(std::size(commands))) {
      Run(*one, *commands[chosen]);
    } else if (chosen < 19) {
      Step(*one, chosen % 2 == 0);
    } else if (one->MayClose()) {
      walk.navigator.Close(screen::kResults);
    }
  }
  void ActInSheet() {
    Command* const commands[] = {&sheet->CmdChD,     &sheet->CmdNewD,
                                 &sheet->CmdDiff,    &sheet->changes.CmdCompare,
                                 &sheet->SSCommand1, &sheet->Cmd_Back};
    const int chosen = dice_.Below(14);
    if (chosen < static_cast<int>(std::size(commands))) {
      Run(*sheet, *commands[chosen]);
    } else if (chosen < 10) {
      sheet->fpSpread1.MoveTo({dice_.Below(sheet->fpSpread1.row_count()), 0});
    } else {
      Step(*sheet, chosen % 2 == 0);
    }
  }
  void ActInList() {
    const int chosen = dice_.Below(8);
    if (chosen == 0) {
      Run(*list, list->Cmd_Close);
    } else if (chosen < 3) {
      Step(*list, chosen == 1);
    } else {
      list->fpSpread1.MoveTo({dice_.Below(8), 0});
      Change([this] { Run(*list, list->CmdReplace); });
    }
  }
  void UseModal(std::string_view name) {
    if (name == screen::kComparison) {
      FrmCompare comparison(walk);
      comparison.Load();
      if (dice_.Below(2) == 0) Step(comparison, dice_.Below(2) == 0);
    }
    if (name != screen::kManyDiameters) return;
    FrmChang many(walk);
    many.Load();
    for (int i = dice_.Below(5); i >= 0; --i) {
      std::vector<int> rows;
      for (int row = 0; row < test.study.SectionCount; ++row) {
        if (dice_.Below(2) == 0) rows.push_back(row);
      }
      many.fpSpread1.TakeSelection(rows);
      many.fpSpread2.MoveTo({dice_.Below(8), 0});
      if (dice_.Below(3) == 0) {
        Step(many, dice_.Below(2) == 0, true);
      } else {
        Change([&] { Run(many, many.CmdChange); });
      }
    }
    Run(many, many.CmdBack);
  }

  [[nodiscard]] State Now() const {
    State state;
    for (const SectionRow& row : test.Rows()) state.diameters.push_back(row.NomiDiam.Utf8());
    const Study& study = test.study;
    state.all = std::to_string(Digest(test.Bytes())) + " " +
                std::to_string(Digest(test.Bytes(work_file::kStatistics))) + " " +
                study.critical_branch + " " + std::to_string(study.CriticalDrop) +
                (study.recalculation_needed ? "!" : "") + (study.unsaved_changes ? "*" : "");
    state.waits = *ChangeWaits(test.workspace);
    return state;
  }
  template <typename Action>
  void Change(const Action& action) {
    const State before = Now();
    action();
    if (Now().diameters == before.diameters) return;
    undo_.push_back(before);
    redo_.clear();
  }
  // Rows that waited may be calculated by the step, but for the window that leaves them waiting.
  void Step(Form& form, bool undo, bool leaves_waiting = false) {
    const State before = Now();
    EXPECT_TRUE(form.Press(Ctrl(undo ? U'Z' : U'Y')));
    auto& from = undo ? undo_ : redo_;
    auto& to = undo ? redo_ : undo_;
    const State now = Now();
    if (from.empty()) {
      EXPECT_EQ(now.all, before.all);
      return;
    }
    EXPECT_EQ(now.diameters, from.back().diameters);
    if (!from.back().waits || leaves_waiting) {
      EXPECT_EQ(now.all, from.back().all);
    }
    from.pop_back();
    to.push_back(before);
  }

  void FollowAnswers() {
    for (const auto& [code, answer] : prompter.asked) {
      if (code != 306 || answer != Answer::kYes) continue;
      const auto rows = Now().diameters;
      redo_.clear();
      const auto same = [&](const State& state) { return state.diameters == rows; };
      undo_.erase(std::ranges::find_if(undo_, same), undo_.end());
    }
  }

  // Rows that do not wait have the results of a run on their diameters; those with the diameters
  // of the session's start have the results of its start.
  void ExpectTrueResults() {
    EXPECT_TRUE(prompter.boxes.size() < 3) << prompter.boxes.back().lines.front();
    EXPECT_FALSE(test.study.recalculation_needed);
    const bool waits = *ChangeWaits(test.workspace);
    EXPECT_FALSE(waits && sheet) << "the sheet shows no diameter beside another one's results";
    if (waits) return;
    const RowTable rows(test.Rows());
    const RowTable first(test.Rows(work_file::kFirstRows));
    const RowTable expected = first.count() > 0 && HaveSameDiameters(first, rows)
                                  ? first
                                  : RowTable(RunOnTheirDiameters());
    for (int number = 1; number <= rows.count(); ++number) {
      for (float SectionRow::*const result : kRunResults) {
        ASSERT_EQ(rows.At(number).*result, expected.At(number).*result) << "row " << number;
      }
    }
    EXPECT_FLOAT_EQ(test.study.CriticalDrop, rows.At(1).DP);
    if (pump && pump_shows_) {
      EXPECT_EQ(pump->Text4.text,
                FormatPattern(HeadOf(rows.At(1).DP), pattern::kTwoDecimals, walk.separators));
    }
  }

  Dice dice_;
  Method method_;

 public:
  ChancePrompter prompter{dice_};
  Workbench bench{test.study, test.workspace, test.pipes, prompter};
  Desk walk{bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};
  std::unique_ptr<FrmRes> one;
  std::unique_ptr<FrmRes_Sheet> sheet;
  std::unique_ptr<FrmAvaiD> list;
  std::unique_ptr<FrmResGn> pump;

 private:
  bool pump_shows_ = false;
  std::vector<State> undo_;
  std::vector<State> redo_;
};

TEST(DiameterWalk, ResultsAreAlwaysThoseOfTheDiameters) {
  for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
    for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
      const unsigned seed = static_cast<unsigned>(kind) * 10 + static_cast<unsigned>(method);
      Wanderer wanderer(kind, method, seed);
      for (int step = 0; step < WalkSteps(1250); ++step) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
        wanderer.Act();
        if (testing::Test::HasFailure()) return;
      }
    }
  }
}

}  // namespace
}  // namespace kalvo

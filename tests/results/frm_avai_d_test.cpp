#include "results/frm_avai_d.h"

#include <gtest/gtest.h>

#include "results/frm_res.h"
#include "results/frm_res_sheet.h"
#include "tests/results/diameter_desk.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

struct OneDiameter : DiameterDesk<FrmRes>, ::testing::Test {
  OneDiameter() { Load(); }
};
struct OneDiameterOfTheSheet : DiameterDesk<FrmRes_Sheet>, ::testing::Test {
  OneDiameterOfTheSheet() { Load(); }
};

TEST_F(OneDiameter, ListsTheLibraryAndFollowsTheRowOnShow) {
  ASSERT_TRUE(OpenBy(view->CmdChD));
  const Grid& list = form->fpSpread1;
  EXPECT_EQ(form->title, " Διαθέσιμες Διάμετροι ");
  EXPECT_EQ(list.row_count(), 27);
  EXPECT_EQ(list.At(0, 0).text, SteelPipes()[0].nominal_diameter.Utf8());
  EXPECT_EQ(list.At(0, 1).text,
            " [ " + FormatNumber(SteelPipes()[0].inner_diameter, desk.separators) + " ]");
  EXPECT_EQ(list.At(10, 0).text, "");
  EXPECT_EQ(Chosen(), test.Row(1).NomiDiam.Utf8());
  EXPECT_EQ(list.At(list.current().row, 2).text, "τώρα");
  EXPECT_EQ(form->LblSection.text, "Τμήμα 1");

  form->fpSpread1.MoveTo({0, 1});
  form->Derive();
  EXPECT_EQ(list.current(), (GridPlace{0, 0})) << "a move in the list moves nothing else";
  EXPECT_EQ(view->LblNumber.text, "1");
  Click(*view, view->CmdNext);
  form->Derive();
  EXPECT_EQ(Chosen(), test.Row(2).NomiDiam.Utf8());
  EXPECT_EQ(form->LblSection.text, "Τμήμα 2");
  form->fpSpread1.MoveTo({20, 2});
  EXPECT_EQ(list.current(), (GridPlace{9, 0})) << "empty rows are not reached";
  EXPECT_TRUE(form->Press(Plain(KeyCode::kHome)));
  EXPECT_EQ(list.current(), (GridPlace{0, 0}));
}

TEST_F(OneDiameter, OpensOnceAndIsHeardWhenItCloses) {
  ASSERT_TRUE(OpenBy(view->CmdChD));
  const std::string first = test.Bytes(work_file::kPreviousRows);
  test.ChangeRow(2, [](SectionRow& row) { row.Lamda = 1; });
  EXPECT_TRUE(OpenBy(view->CmdChangeOne)) << "to the front";
  EXPECT_EQ(test.Bytes(work_file::kPreviousRows), first);
  EXPECT_FALSE(test.workspace.Exists(work_file::kRowsBeforeChange));
  desk.options.SoundOn = true;
  EXPECT_FALSE(form->MayClose());
  EXPECT_EQ(TakeLog(), (std::vector<std::string>{"close FrmAvaiD", "show FrmRes"}));
  EXPECT_FALSE(desk.screens.ChangeFormOpen);
  EXPECT_EQ(sound.played, 1);
  Bury();
  ASSERT_TRUE(OpenBy(view->CmdChD));
  sound.played = 0;
  Click(*view, view->CmdBack);
  EXPECT_FALSE(desk.screens.ChangeFormOpen);
  EXPECT_EQ(sound.played, 2) << "Back, and the form that closes with the results";
}

enum class Network { kClosed, kOpen, kLone };
enum class Entry { kButton, kSheetButton, kMenu };

struct Road {
  Network network;
  Method method;
  Entry entry;
};

std::string NameOf(const Road& road) {
  return "network " + std::to_string(static_cast<int>(road.network)) + ", method " +
         std::to_string(static_cast<int>(road.method)) + ", entry " +
         std::to_string(static_cast<int>(road.entry));
}

std::vector<Road> AllRoads() {
  std::vector<Road> roads;
  for (const Network network : {Network::kClosed, Network::kOpen, Network::kLone}) {
    for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
      for (const Entry entry : {Entry::kButton, Entry::kSheetButton, Entry::kMenu}) {
        roads.push_back({network, method, entry});
      }
    }
  }
  return roads;
}

template <typename View>
void Begin(DiameterDesk<View>& desk, const Road& road) {
  if (road.network == Network::kLone) {
    desk.Calculate({"ANT/ANT 5m soma 300l/h 500mm"}, road.method);
  } else if (road.method != Method::kFlowOnly) {
    desk.CalculateAnew(road.method);
  }
  desk.Load();
}

// One change on a road, from the opening of the form to rows that are calculated. Gives these.
template <typename View>
std::string Change(DiameterDesk<View>& desk, const Road& road, Command& command) {
  TestBench& test = desk.test;
  const bool menu = road.entry == Entry::kMenu;
  const std::string before = test.Bytes();
  const SectionRow old = test.Row(1);
  EXPECT_EQ(test.Bytes(work_file::kFirstRows), before);
  EXPECT_TRUE(desk.OpenBy(command));
  EXPECT_EQ(test.Bytes(work_file::kPreviousRows), menu ? "(missing)" : before);
  EXPECT_EQ(test.Bytes(work_file::kRowsBeforeChange), menu ? before : "(missing)");
  desk.Replace("4");
  const SectionRow now = test.Row(1);
  EXPECT_EQ(now.NomiDiam.Utf8(), "4");
  EXPECT_EQ(now.InDiameter, -SteelPipes().back().inner_diameter);
  EXPECT_EQ(now.INILAMDA, old.INILAMDA);
  EXPECT_TRUE(test.study.unsaved_changes);
  EXPECT_EQ(test.study.CurrentRow, 1);
  EXPECT_EQ(test.Bytes(work_file::kFirstRows), before);
  EXPECT_EQ(desk.form->LblNow.text.find("αναμένει") != std::string::npos, menu);
  if (menu) {
    EXPECT_EQ(now.Velocity, old.Velocity) << "nothing is calculated yet";
    EXPECT_EQ(test.Bytes(work_file::kRowsBeforeChange), before);
  } else {
    EXPECT_LT(now.Velocity, old.Velocity);
    EXPECT_LT(now.DP, old.DP);
    EXPECT_EQ(test.Bytes(work_file::kPreviousRows), test.Bytes());
  }
  return before;
}

std::string RowsAfter(const Road& road) {
  const SystemKind kind = road.network == Network::kOpen ? SystemKind::kOpen : SystemKind::kClosed;
  if (road.entry == Entry::kSheetButton) {
    DiameterDesk<FrmRes_Sheet> desk(kind);
    Begin(desk, road);
    const std::string old_head = desk.view->frame.LblHead.text;
    const std::string before = Change(desk, road, desk.view->CmdChD);
    EXPECT_EQ(desk.view->fpSpread1.At(0, 2).tone, Tone::kImposed);
    EXPECT_EQ(desk.view->fpSpread1.At(0, 2).text, "4");
    EXPECT_EQ(desk.view->frame.LblHead.text,
              FormatPattern(HeadOf(desk.test.Row(1).DP), "#,##0.00", desk.desk.separators));
    std::string after = desk.test.Bytes();
    desk.test.prompter.Expect(307, Answer::kNo);
    Click(*desk.view, desk.view->Cmd_Back);
    EXPECT_EQ(desk.test.Bytes(), before);
    EXPECT_EQ(desk.view->frame.LblHead.text, old_head);
    return after;
  }
  const bool menu = road.entry == Entry::kMenu;
  DiameterDesk<FrmRes> desk(kind);
  Begin(desk, road);
  const std::string old_head = desk.view->frame.LblHead.text;
  const std::string before = Change(desk, road, menu ? desk.view->CmdChangeOne : desk.view->CmdChD);
  EXPECT_EQ(desk.view->TxtNomiDiam.tone, menu ? Tone::kWaiting : Tone::kImposed);
  EXPECT_EQ(desk.view->LblWas.text.find("αναμένει") != std::string::npos, menu);
  EXPECT_EQ(desk.view->frame.LblHead.text, old_head) << "it is of the load";
  if (!menu) {
    Click(*desk.view, desk.view->CmdDiff);
    EXPECT_EQ(desk.test.prompter.codes(), std::vector{302}) << "nothing waits";
    return desk.test.Bytes();
  }
  Click(*desk.view, desk.view->CmdLast);
  Click(*desk.view, desk.view->CmdFirst);
  EXPECT_EQ(desk.view->TxtNomiDiam.tone,
            road.network == Network::kLone ? Tone::kWaiting : Tone::kImposed)
      << "until the next display";
  desk.test.prompter.Expect(304, Answer::kYes);
  Click(*desk.view, desk.view->CmdPump);
  EXPECT_FALSE(desk.desk.screens.ChangeFormOpen) << "its view has closed";
  EXPECT_FALSE(desk.test.workspace.Exists(work_file::kRowsBeforeChange));
  return desk.test.Bytes();
}

TEST(RoadsToADiameter, LeadToTheSameRowsByTheirOwnCopiesAndQuestions) {
  std::string by_button;
  for (const Road& road : AllRoads()) {
    SCOPED_TRACE(NameOf(road));
    const std::string after = RowsAfter(road);
    if (road.entry == Entry::kButton) by_button = after;
    EXPECT_EQ(after, by_button);
  }
}

TEST_F(OneDiameter, DoesNothingWhereTheDiameterIsTheSame) {
  ASSERT_TRUE(OpenBy(view->CmdChD));
  const std::string before = test.Bytes();
  test.workspace.Delete(work_file::kPreviousRows);
  Replace(test.Row(1).NomiDiam.Utf8());
  EXPECT_EQ(test.Bytes(), before);
  EXPECT_FALSE(test.workspace.Exists(work_file::kPreviousRows));
  EXPECT_FALSE(test.study.unsaved_changes);
  EXPECT_TRUE(navigator.waits.empty());
}

TEST_F(OneDiameter, TakesTheMarkAwayWhereTheDiameterComesBack) {
  for (Command* command : {&view->CmdChD, &view->CmdChangeOne}) {
    SCOPED_TRACE(command->name());
    ASSERT_TRUE(OpenBy(*command));
    const std::string before = test.Bytes();
    const std::string own = test.Row(1).NomiDiam.Utf8();
    Replace("4");
    Replace("3");
    EXPECT_LT(test.Row(1).InDiameter, 0);
    Replace(own);
    EXPECT_EQ(test.Bytes(), before);
    EXPECT_EQ(view->TxtNomiDiam.tone, Tone::kCalculated);
    EXPECT_FALSE(view->LblWas.visible);
    Click(*form, form->Cmd_Close);
    Bury();
  }
  Click(*view, view->CmdBack);
  EXPECT_TRUE(test.prompter.codes().empty()) << "no diameters differ";
}

TEST_F(OneDiameter, IsCalculatedAtOnceFromTheMenuWhereTheButtonWasUsedBefore) {
  ASSERT_TRUE(OpenBy(view->CmdChD));
  Click(*form, form->Cmd_Close);
  Bury();
  ASSERT_TRUE(OpenBy(view->CmdChangeOne));
  EXPECT_EQ(form->LblHint.text, "Η αντικατάσταση υπολογίζει αμέσως το δίκτυο.");
  Replace("4");
  EXPECT_EQ(view->TxtNomiDiam.tone, Tone::kImposed);
  EXPECT_EQ(test.Bytes(work_file::kPreviousRows), test.Bytes());
}

TEST_F(OneDiameter, CalculatesWhatWaitsBeforeTheButtonCopiesTheRows) {
  ASSERT_TRUE(OpenBy(view->CmdChangeOne));
  const std::string before = test.Bytes();
  Replace("4");
  Click(*form, form->Cmd_Close);
  Bury();
  ASSERT_TRUE(OpenBy(view->CmdChangeOne));
  EXPECT_EQ(test.Bytes(work_file::kRowsBeforeChange), before) << "the first copy stands";
  Click(*form, form->Cmd_Close);
  Bury();
  const float velocity = test.Row(1).Velocity;
  ASSERT_TRUE(OpenBy(view->CmdChD));
  EXPECT_LT(test.Row(1).Velocity, velocity);
  EXPECT_EQ(view->TxtNomiDiam.tone, Tone::kImposed);
  EXPECT_EQ(test.Bytes(work_file::kPreviousRows), test.Bytes());
}

TEST_F(OneDiameter, RenewsFirstRowsThatAreMissingOrEmptyAtTheButton) {
  for (const bool empty : {false, true}) {
    test.workspace.Delete(work_file::kFirstRows);
    if (empty) {
      ASSERT_TRUE(test.workspace.Write(work_file::kFirstRows, "").ok());
    }
    ASSERT_TRUE(OpenBy(view->CmdChD));
    EXPECT_EQ(test.Bytes(work_file::kFirstRows), test.Bytes());
    Click(*form, form->Cmd_Close);
    Bury();
  }
}

TEST_F(OneDiameter, IsRefusedInWinter) {
  desk.screens.WinterPump = true;
  EXPECT_FALSE(OpenBy(view->CmdChD));
  EXPECT_FALSE(OpenBy(view->CmdChangeOne));
  EXPECT_EQ(test.prompter.codes(), (std::vector{402, 402}));
  EXPECT_FALSE(test.workspace.Exists(work_file::kPreviousRows));
  EXPECT_FALSE(test.workspace.Exists(work_file::kRowsBeforeChange));
}

TEST_F(OneDiameterOfTheSheet, ReplacesInTheRowThatIsMeantWhereTheViewIsSorted) {
  view->fpSpread1.CycleSort(5);
  view->fpSpread1.CycleSort(5);
  const int row = view->fpSpread1.order().front();
  view->fpSpread1.MoveTo({row, 5});
  ASSERT_TRUE(OpenBy(view->CmdChD));
  EXPECT_EQ(form->LblSection.text, "Τμήμα " + std::to_string(row + 1));
  const auto order = view->fpSpread1.order();
  Replace("4");
  for (int number = 1; number <= 6; ++number) {
    EXPECT_EQ(test.Row(number).NomiDiam.Utf8() == "4", number == row + 1);
  }
  EXPECT_EQ(view->fpSpread1.At(row, 2).text, "4");
  EXPECT_EQ(view->fpSpread1.current(), (GridPlace{row, 5}));
  EXPECT_EQ(view->fpSpread1.order(), order);
  EXPECT_EQ(test.study.CurrentRow, row + 1);
  EXPECT_EQ(desk.screens.results_view, ResultsView::kSheet);
}

TEST_F(OneDiameterOfTheSheet, ShowsYellowAtOnceWithoutACalculation) {
  ASSERT_TRUE(OpenBy(view->CmdChD));
  test.workspace.Delete(work_file::kPreviousRows);
  const std::string own = test.Row(1).NomiDiam.Utf8();
  const std::string velocity = view->fpSpread1.At(0, 4).text;
  Replace("4");
  EXPECT_EQ(view->fpSpread1.At(0, 2).tone, Tone::kImposed);
  EXPECT_EQ(view->fpSpread1.At(0, 4).text, velocity);
  Replace(own);
  EXPECT_EQ(view->fpSpread1.At(0, 2).tone, Tone::kCalculated);
}

TEST_F(OneDiameter, ChoosesNothingForADiameterThatTheLibraryLacks) {
  Impose(2, "nowhere", 30);
  ASSERT_TRUE(OpenBy(view->CmdChD));
  Click(*view, view->CmdNext);
  form->Derive();
  EXPECT_EQ(Chosen(), "(none)");
  const std::string before = test.Bytes();
  Click(*form, form->CmdReplace);
  EXPECT_EQ(test.Bytes(), before);
  EXPECT_EQ(form->LblHint.tone, Tone::kAlarm);
  Replace("4");
  EXPECT_EQ(test.Row(2).NomiDiam.Utf8(), "4");
}

TEST_F(OneDiameter, TakesALibraryThatHasChangedAnew) {
  ASSERT_TRUE(OpenBy(view->CmdChD));
  const std::string before = test.Bytes();
  std::vector<PipeRow> fewer = SteelPipes();
  fewer.resize(3);
  PutPipes(test, "0001.WPT", fewer);
  Replace("4");
  EXPECT_EQ(test.Bytes(), before);
  EXPECT_EQ(form->fpSpread1.At(3, 0).text, "");
  EXPECT_EQ(form->LblHint.tone, Tone::kAlarm);
  Replace(fewer[2].nominal_diameter.Utf8());
  EXPECT_EQ(test.Row(1).NomiDiam.Utf8(), fewer[2].nominal_diameter.Utf8());
}

TEST_F(OneDiameter, SaysOfASectionShownBeforeThatItWaits) {
  ASSERT_TRUE(OpenBy(view->CmdChangeOne));
  Replace("4");
  EXPECT_TRUE(form->Press(Plain(KeyCode::kEscape)));
  Bury();
  Click(*view, view->CmdNext);
  Click(*view, view->CmdPrev);
  ASSERT_TRUE(OpenBy(view->CmdChangeOne));
  EXPECT_EQ(form->LblNow.text, "Τώρα 4, αναμένει υπολογισμό.");
}

TEST_F(OneDiameter, ClosesThePumpThatIsNoLongerTheNetworks) {
  Click(*view, view->CmdPump);
  ASSERT_TRUE(OpenBy(view->CmdChD));
  ASSERT_TRUE(navigator.IsOpen(screen::kPump));
  Replace("4");
  EXPECT_FALSE(navigator.IsOpen(screen::kPump));
}

TEST_F(OneDiameter, ShowsADiameterThatCannotBeCalculatedAsOneThatWaits) {
  ASSERT_TRUE(OpenBy(view->CmdChD));
  const std::string before = test.Bytes();
  test.ChangeRow(6, [](SectionRow& row) { row.WaterFlow = 0; });
  Replace("4");
  EXPECT_FALSE(test.prompter.boxes().empty());
  EXPECT_TRUE(test.study.recalculation_needed);
  EXPECT_EQ(view->TxtNomiDiam.tone, Tone::kWaiting);
  test.prompter.Expect(307, Answer::kNo);
  Click(*view, view->CmdBack);
  EXPECT_EQ(test.Bytes(), before);
  EXPECT_FALSE(test.study.recalculation_needed);
}

// Whatever operation of the disk fails, the rows are those of before or of after, whole, and the
// results stay open.
TEST(FailingDiskAtADiameter, LosesNoRows) {
  for (const bool menu : {false, true}) {
    bool reached = true;
    for (int operation = 1; reached; ++operation) {
      SCOPED_TRACE((menu ? "menu, operation " : "button, operation ") + std::to_string(operation));
      DiameterDesk<FrmRes> desk;
      desk.Load();
      TestBench& test = desk.test;
      const std::string before = test.Bytes();
      FailingDisk disk(test.work_disk);
      test.workspace = Workspace(disk, TestBench::kProgramFolder, test.outer_disk,
                                 TestBench::kLibraryFolder, test.clock);
      disk.FailAtOperation(operation, FailingDisk::Lasting::kOnce);
      const bool opened = desk.OpenBy(menu ? desk.view->CmdChangeOne : desk.view->CmdChD);
      if (opened) desk.Replace("4");
      reached = disk.operations() >= operation;
      EXPECT_TRUE(opened || !test.prompter.boxes().empty());
      EXPECT_EQ(test.Rows().size(), 6U);
      EXPECT_EQ(test.Bytes(work_file::kFirstRows), before);
      const bool changed = test.Bytes() != before;
      EXPECT_EQ(test.Row(1).NomiDiam.Utf8() == "4", changed);
      EXPECT_EQ(desk.view->TxtNomiDiam.text, test.Row(1).NomiDiam.Utf8());
      disk.Mend();
      if (changed) test.prompter.Expect(307, Answer::kNo);
      Click(*desk.view, desk.view->CmdBack);
      EXPECT_EQ(test.Bytes(), before);
    }
  }
}

}  // namespace
}  // namespace kalvo

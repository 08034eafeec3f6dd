#include "results/frm_chang.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "results/frm_res.h"
#include "results/frm_res_sheet.h"
#include "tests/results/results_desk.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

// Results with a view, and over it the form, once a command of the view has opened it.
template <typename View>
struct ManyDesk : ResultsDesk {
  explicit ManyDesk(SystemKind kind = SystemKind::kClosed) : ResultsDesk(kind) {}

  void Load() {
    view.emplace(desk);
    view->Load();
    view->Activate();
    test.study.unsaved_changes = false;
    TakeLog();
  }
  /// The user presses a command and does this in the form that it shows. Gives whether it did.
  template <typename Use>
  bool Within(Command& command, const Use& use) {
    bool shown = false;
    navigator.on_modal = [&](std::string_view name) {
      EXPECT_EQ(name, "FrmChang");
      shown = true;
      FrmChang form(desk);
      form.Load();
      form.Activate();
      form.Derive();
      use(form);
    };
    TakeLog();
    Click(*view, command);
    navigator.on_modal = nullptr;
    return shown;
  }
  /// The user replaces the diameter of these sections and leaves.
  bool Change(Command& command, const std::vector<int>& sections, std::string_view diameter) {
    return Within(command, [&](FrmChang& form) {
      Replace(form, sections, diameter);
      EXPECT_TRUE(form.Press(Plain(KeyCode::kEscape)));
    });
  }

  static void Choose(FrmChang& form, std::string_view diameter) {
    for (int row = 0; row < form.fpSpread2.row_count(); ++row) {
      if (form.fpSpread2.At(row, 0).text == diameter) form.fpSpread2.MoveTo({row, 0});
    }
    form.Derive();
  }
  static void Select(FrmChang& form, std::vector<int> sections) {
    for (int& section : sections) --section;
    form.fpSpread1.TakeSelection(sections);
    form.Derive();
  }
  static void Replace(FrmChang& form, const std::vector<int>& sections, std::string_view diameter) {
    Select(form, sections);
    Choose(form, diameter);
    EXPECT_TRUE(form.Press(Ctrl(KeyCode::kEnter)));
    form.Derive();
  }
  [[nodiscard]] std::string Bracketed(float mm) const {
    return "[ " + FormatNumber(mm, desk.separators) + " ]";
  }

  std::optional<View> view;
};

struct ManyDiameters : ManyDesk<FrmRes>, ::testing::Test {
  ManyDiameters() { Load(); }
};
struct ManyDiametersOfTheSheet : ManyDesk<FrmRes_Sheet>, ::testing::Test {
  ManyDiametersOfTheSheet() { Load(); }
};

std::vector<int> SelectedIn(const FrmChang& form) {
  std::vector<int> sections = form.fpSpread1.SelectedRows();
  for (int& section : sections) ++section;
  return sections;
}

TEST_F(ManyDiameters, ListsTheNetworkAndTheLibrary) {
  Click(*view, view->CmdNext);
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    EXPECT_EQ(form.title, "Αλλαγή Διαμέτρων Σωλήνων");
    const Grid& network = form.fpSpread1;
    const SectionRow row = test.Row(2);
    EXPECT_EQ(network.row_count(), 21);
    EXPECT_EQ(network.column_count(), 4);
    EXPECT_EQ(network.At(1, 0).text, "  2.");
    EXPECT_EQ(network.At(1, 1).text, row.Name.Utf8());
    EXPECT_EQ(network.At(1, 2).text, row.NomiDiam.Utf8());
    EXPECT_EQ(network.At(1, 3).text, " " + Bracketed(row.InDiameter));
    EXPECT_FALSE(network.At(1, 3).left);
    EXPECT_TRUE(network.IsBlank(6));
    EXPECT_TRUE(network.IsMarked(1));
    EXPECT_FALSE(network.IsMarked(2));
    EXPECT_EQ(network.current().row, 1) << "the section on show";
    EXPECT_TRUE(network.SelectedRows().empty());
    const Grid& library = form.fpSpread2;
    EXPECT_EQ(library.row_count(), 22);
    EXPECT_EQ(library.At(9, 0).text, "4");
    EXPECT_EQ(library.At(9, 1).text, " " + Bracketed(SteelPipes()[9].inner_diameter));
    EXPECT_EQ(library.current().row, -1);
    form.fpSpread2.MoveTo({20, 0});
    EXPECT_EQ(library.current().row, 9) << "empty rows are not reached";
    form.fpSpread1.TakeSelection(std::vector{1, 5, 6, 20});
    EXPECT_EQ(SelectedIn(form), (std::vector{2, 6})) << "nor chosen";
  }));
}

enum class ManyNetwork { kClosed, kOpen, kLone };
enum class ManyEntry { kButton, kSheetButton, kMenu };

struct ManyRoad {
  ManyNetwork network;
  ManyEntry entry;
};

std::string NameOf(const ManyRoad& road) {
  return "network " + std::to_string(static_cast<int>(road.network)) + ", entry " +
         std::to_string(static_cast<int>(road.entry));
}

std::vector<int> SectionsOf(const ManyRoad& road) {
  if (road.network == ManyNetwork::kLone) return {1};
  return road.network == ManyNetwork::kOpen ? std::vector{1, 3} : std::vector{1, 3, 5};
}

// Unselected rows are as they were, bit for bit, the others have the pipe and else what they had.
void ExpectReplaced(const TestBench& test, const std::vector<SectionRow>& before,
                    const std::vector<int>& sections) {
  std::vector<SectionRow> expected = before;
  for (const int section : sections) {
    SectionRow& row = expected[static_cast<std::size_t>(section) - 1];
    row.NomiDiam = FixedText<15>::FromUtf8("4");
    row.InDiameter = -SteelPipes().back().inner_diameter;
  }
  EXPECT_EQ(test.Bytes(), EncodeRows<SectionRow>(expected));
}

// A change on a road until the form is left.
template <typename View>
void ChangeOn(ManyDesk<View>& desk, const ManyRoad& road, Command& command) {
  TestBench& test = desk.test;
  const bool menu = road.entry == ManyEntry::kMenu;
  const std::string before = test.Bytes();
  const std::vector<SectionRow> rows = test.Rows();
  const bool shown = desk.Within(command, [&](FrmChang& form) {
    EXPECT_EQ(test.Bytes(work_file::kPreviousRows), menu ? "(missing)" : before);
    EXPECT_EQ(test.Bytes(work_file::kRowsBeforeChange), menu ? before : "(missing)");
    desk.Replace(form, SectionsOf(road), "4");
    ExpectReplaced(test, rows, SectionsOf(road));
    EXPECT_EQ(form.fpSpread1.At(0, 2).tone, Tone::kWaiting);
    EXPECT_EQ(form.fpSpread1.At(0, 3).text, desk.Bracketed(-SteelPipes().back().inner_diameter));
    EXPECT_TRUE(form.fpSpread1.At(0, 3).left);
    EXPECT_TRUE(test.study.unsaved_changes);
    form.Press(Plain(KeyCode::kEscape));
  });
  EXPECT_TRUE(shown);
  EXPECT_EQ(test.Bytes(work_file::kFirstRows), before);
  EXPECT_EQ(test.study.CurrentRow, 1);
  if (menu) {
    ExpectReplaced(test, rows, SectionsOf(road));
    EXPECT_EQ(test.Bytes(work_file::kRowsBeforeChange), before);
  } else {
    EXPECT_LT(test.Row(1).Velocity, rows[0].Velocity);
    EXPECT_EQ(test.Bytes(work_file::kPreviousRows), test.Bytes());
  }
}

template <typename View>
void BeginOn(ManyDesk<View>& desk, const ManyRoad& road) {
  if (road.network == ManyNetwork::kLone) desk.Calculate({"ANT/ANT 5m soma 300l/h 500mm"});
  desk.Load();
}

std::string RowsAfter(const ManyRoad& road) {
  const SystemKind kind =
      road.network == ManyNetwork::kOpen ? SystemKind::kOpen : SystemKind::kClosed;
  if (road.entry == ManyEntry::kSheetButton) {
    ManyDesk<FrmRes_Sheet> desk(kind);
    BeginOn(desk, road);
    ChangeOn(desk, road, desk.view->CmdNewD);
    EXPECT_EQ(desk.view->fpSpread1.At(0, 2).tone, Tone::kImposed);
    EXPECT_EQ(desk.view->frame.LblHead.text,
              FormatPattern(HeadOf(desk.test.Row(1).DP), "#,##0.00", desk.desk.separators));
    EXPECT_EQ(desk.TakeLog(),
              (std::vector<std::string>{"modal FrmChang", "close FrmRes", "close FrmChang"}));
    return desk.test.Bytes();
  }
  const bool menu = road.entry == ManyEntry::kMenu;
  ManyDesk<FrmRes> desk(kind);
  BeginOn(desk, road);
  ChangeOn(desk, road, menu ? desk.view->CmdChangeMany : desk.view->CmdNewD);
  EXPECT_EQ(desk.view->TxtNomiDiam.text, "4");
  EXPECT_EQ(desk.view->TxtNomiDiam.tone, menu ? Tone::kWaiting : Tone::kImposed);
  EXPECT_EQ(desk.view->LblWas.text.find("αναμένει") != std::string::npos, menu);
  if (menu) {
    desk.test.prompter.Expect(304, Answer::kYes);
    Click(*desk.view, desk.view->CmdPump);
    EXPECT_FALSE(desk.test.workspace.Exists(work_file::kRowsBeforeChange));
  }
  return desk.test.Bytes();
}

TEST(RoadsToManyDiameters, LeadToTheSameRowsByTheirOwnCopiesAndQuestions) {
  for (const ManyNetwork network : {ManyNetwork::kClosed, ManyNetwork::kOpen, ManyNetwork::kLone}) {
    std::string by_button;
    for (const ManyEntry entry : {ManyEntry::kButton, ManyEntry::kSheetButton, ManyEntry::kMenu}) {
      const ManyRoad road{network, entry};
      SCOPED_TRACE(NameOf(road));
      const std::string after = RowsAfter(road);
      if (entry == ManyEntry::kButton) by_button = after;
      EXPECT_EQ(after, by_button);
    }
  }
}

TEST_F(ManyDiameters, IsCalculatedAtBackFromTheMenuToo_WhereTheButtonWasUsedBefore) {
  EXPECT_TRUE(Within(view->CmdNewD, [](FrmChang& form) { Click(form, form.CmdBack); }));
  const float velocity = test.Row(1).Velocity;
  EXPECT_TRUE(Change(view->CmdChangeMany, {1, 2}, "4"));
  EXPECT_LT(test.Row(1).Velocity, velocity);
  EXPECT_EQ(view->TxtNomiDiam.tone, Tone::kImposed);
}

TEST_F(ManyDiameters, ChangesNothingWhereNothingIsReplaced) {
  const std::string before = test.Bytes();
  for (Command* command : {&view->CmdNewD, &view->CmdChangeMany}) {
    EXPECT_TRUE(Within(*command, [&](FrmChang& form) {
      Replace(form, {1}, test.Row(1).NomiDiam.Utf8());
      EXPECT_FALSE(form.fpSpread1.At(0, 3).left);
      EXPECT_FALSE(form.MayClose()) << "it closes by its command";
    }));
    EXPECT_EQ(TakeLog().back(), "close FrmChang");
    EXPECT_EQ(test.Bytes(), before);
    EXPECT_FALSE(test.study.unsaved_changes);
  }
}

TEST_F(ManyDiameters, LeavesTheMarkOffWhereADiameterComesBack) {
  const std::string before = test.Bytes();
  const std::string own = test.Row(2).NomiDiam.Utf8();
  const float inner = test.Row(2).InDiameter;
  EXPECT_TRUE(Within(view->CmdChangeMany, [&](FrmChang& form) {
    Replace(form, {2}, "4");
    Replace(form, {2}, "3");
    EXPECT_EQ(form.fpSpread1.At(1, 2).text, "3");
    Replace(form, {2}, own);
    EXPECT_EQ(form.fpSpread1.At(1, 2).tone, Tone::kPlain);
    EXPECT_EQ(form.fpSpread1.At(1, 3).text, Bracketed(inner));
    Click(form, form.CmdBack);
  }));
  EXPECT_EQ(test.Bytes(), before);
  EXPECT_EQ(view->TxtNomiDiam.tone, Tone::kCalculated);
  Click(*view, view->CmdBack);
  EXPECT_TRUE(test.prompter.codes().empty()) << "no diameters differ";
}

TEST_F(ManyDiameters, TakesBackOneCommandAtATime) {
  const std::string before = test.Bytes();
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    Replace(form, {2, 3}, "4");
    const GridCell once = form.fpSpread1.At(1, 3);
    Replace(form, {2}, "3");
    EXPECT_TRUE(form.Press(Ctrl('Z')));
    EXPECT_EQ(form.fpSpread1.At(1, 2).text, "4");
    EXPECT_EQ(form.fpSpread1.At(1, 3), once) << "it is replaced still";
    EXPECT_TRUE(form.Press(Ctrl('Z')));
    EXPECT_EQ(form.fpSpread1.At(1, 2).tone, Tone::kPlain);
    EXPECT_TRUE(test.Bytes() == before);
    EXPECT_TRUE(form.Press(Ctrl('Z')));
    EXPECT_EQ(form.LblHint.text, kNothingToUndo);
    EXPECT_TRUE(form.Press(Ctrl('Y')));
    EXPECT_EQ(form.fpSpread1.At(1, 3), once);
    EXPECT_TRUE(form.Press(Ctrl('Z')));
    Click(form, form.CmdBack);
  }));
  EXPECT_TRUE(test.Bytes() == before);
}

TEST_F(ManyDiameters, SaysWhyNothingIsReplaced) {
  const std::string before = test.Bytes();
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    EXPECT_FALSE(form.LblHint.visible);
    Click(form, form.CmdChange);
    form.Derive();
    EXPECT_TRUE(form.LblHint.visible);
    EXPECT_NE(form.LblHint.text.find("τμήματα"), std::string::npos);
    Select(form, {1});
    EXPECT_FALSE(form.LblHint.visible) << "until something is chosen";
    Click(form, form.CmdChange);
    form.Derive();
    EXPECT_NE(form.LblHint.text.find("διάμετρο"), std::string::npos);
    EXPECT_EQ(form.LblHint.tone, Tone::kAlarm);
    Choose(form, "4");
    EXPECT_FALSE(form.LblHint.visible);
  }));
  EXPECT_EQ(sound.beeps, 2);
  EXPECT_TRUE(test.prompter.boxes().empty());
  EXPECT_EQ(test.Bytes(), before);
}

TEST_F(ManyDiameters, IsRefusedWhileTheOtherFormIsOpenAndInWinter) {
  const auto never = [](FrmChang&) { ADD_FAILURE() << "it was shown"; };
  desk.screens.ChangeFormOpen = true;
  EXPECT_FALSE(Within(view->CmdNewD, never));
  desk.screens.WinterPump = true;
  EXPECT_FALSE(Within(view->CmdChangeMany, never));
  desk.screens.ChangeFormOpen = false;
  EXPECT_FALSE(Within(view->CmdNewD, never));
  EXPECT_FALSE(Within(view->CmdChangeMany, never));
  EXPECT_EQ(test.prompter.codes(), (std::vector{401, 401, 402, 402}));
  EXPECT_FALSE(test.workspace.Exists(work_file::kPreviousRows));
  EXPECT_FALSE(test.workspace.Exists(work_file::kRowsBeforeChange));
}

TEST_F(ManyDiameters, SaysWhatWouldBeDoneAndWhenItIsCalculated) {
  const std::string own = test.Row(2).NomiDiam.Utf8();
  const auto texts = [](FrmChang& form) {
    form.Derive();
    EXPECT_EQ(form.CmdChange.described, form.LblEffect.text + ". " + form.LblRest.text);
    return form.LblEffect.text + " | " + form.LblRest.text;
  };
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    EXPECT_EQ(texts(form),
              "Επιλέξτε τα τμήματα που αλλάζουν | "
              "Ο υπολογισμός γίνεται με την επιστροφή.");
    EXPECT_EQ(form.LblSelected.text, "0 επιλεγμένα από 6");
    Select(form, {2});
    EXPECT_EQ(form.LblSelected.text, "1 επιλεγμένο από 6");
    EXPECT_EQ(form.LblEffect.text, "Επιλέξτε τη νέα διάμετρο");
    Choose(form, own);
    EXPECT_EQ(texts(form),
              "Κανένα τμήμα δεν αλλάζει | 1 την έχει ήδη · "
              "Ο υπολογισμός γίνεται με την επιστροφή.");
    Replace(form, {1}, "4");
    Select(form, {1, 2});
    EXPECT_EQ(texts(form),
              "1 τμήμα θα γίνει 4 | 1 την έχει ήδη · "
              "Ο υπολογισμός γίνεται με την επιστροφή.");
    Select(form, {2, 3});
    EXPECT_EQ(texts(form),
              "2 τμήματα θα γίνουν 4 | 1 άλλο αναμένει υπολογισμό, "
              "που γίνεται με την επιστροφή.");
    Replace(form, {2, 3}, "4");
    Select(form, {4});
    EXPECT_EQ(form.LblRest.text, "3 άλλα αναμένουν υπολογισμό, που γίνεται με την επιστροφή.");
    Select(form, {1, 2, 3});
    EXPECT_EQ(form.LblRest.text, "3 την έχουν ήδη · Ο υπολογισμός γίνεται με την επιστροφή.");
    Click(form, form.CmdBack);
  }));
  test.workspace.Delete(work_file::kPreviousRows);
  ASSERT_TRUE(KeepRows(desk, work_file::kFirstRows));
  EXPECT_TRUE(Within(view->CmdChangeMany, [&](FrmChang& form) {
    EXPECT_EQ(form.LblRest.text,
              "Ο υπολογισμός θα ζητηθεί με την επόμενη εντολή των αποτελεσμάτων.");
    Replace(form, {1}, "3");
    Select(form, {});
    EXPECT_EQ(form.LblRest.text,
              "1 τμήμα αναμένει υπολογισμό, που θα ζητηθεί με την επόμενη "
              "εντολή των αποτελεσμάτων.");
  }));
}

TEST_F(ManyDiameters, PicksAddUpAndAreCountedBeforehand) {
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    EXPECT_EQ(form.LblBranch.text, "4 τμήματα");
    Click(form, form.CmdBranch);
    EXPECT_EQ(SelectedIn(form), (std::vector{1, 2, 4, 6}));
    EXPECT_EQ(form.CboWay.entries, (std::vector<std::string>{"τμήμα 2 · 1/2", "τμήμα 3 · 1/3"}));
    form.CboWay.Select(1);
    EXPECT_EQ(form.LblWay.text, "4 τμήματα");
    Click(form, form.CmdWay);
    EXPECT_EQ(SelectedIn(form), (std::vector{1, 2, 3, 4, 5, 6}));
    Click(form, form.CmdNone);
    EXPECT_TRUE(SelectedIn(form).empty());

    const float fastest = std::max(test.Row(1).Velocity, test.Row(2).Velocity);
    TypeInto(form, form.TxtVelocity, FormatNumber(fastest, {'.', ','}));
    EXPECT_EQ(form.TxtVelocity.text, FormatNumber(fastest, desk.separators))
        << "both keys give the user's separator";
    form.CboVelocity.Select(1);
    const auto slower = static_cast<int>(std::ranges::count_if(
        test.Rows(), [&](const SectionRow& row) { return row.Velocity < fastest; }));
    EXPECT_EQ(form.LblVelocity.text, std::to_string(slower) + " τμήματα");
    PressKey(form, Plain(KeyCode::kEnter));
    EXPECT_EQ(SelectedIn(form).size(), static_cast<std::size_t>(slower));
    form.CboVelocity.Select(0);
    TypeInto(form, form.TxtVelocity, "");
    EXPECT_EQ(form.LblVelocity.text, "0 τμήματα");
    sound.beeps = 0;
    Click(form, form.CmdVelocity);
    EXPECT_EQ(sound.beeps, 1);
    EXPECT_EQ(SelectedIn(form).size(), static_cast<std::size_t>(slower)) << "nothing is taken away";

    Click(form, form.CmdNone);
    const std::string narrowest = form.CboDiameter.entries.front();
    Click(form, form.CmdDiameter);
    for (const int section : SelectedIn(form)) {
      EXPECT_EQ(test.Row(section).NomiDiam.Utf8(), narrowest);
    }
    Replace(form, SelectedIn(form), "4");
    EXPECT_EQ(form.CboDiameter.entries.back(), "4") << "the picks follow the rows";
    EXPECT_EQ(std::ranges::count(form.CboDiameter.entries, narrowest), 0);
  }));
}

TEST_F(ManyDiameters, IsUsedByItsKeysAndMenu) {
  const std::string before = test.Bytes();
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    EXPECT_EQ(form.focus(), &form.fpSpread1);
    EXPECT_TRUE(form.Press(Typed(' ')));
    EXPECT_EQ(SelectedIn(form), std::vector{1});
    EXPECT_TRUE(form.Press(Ctrl('A')));
    EXPECT_EQ(SelectedIn(form).size(), 6U);
    for (Control* next :
         std::initializer_list<Control*>{&form.fpSpread2, &form.CboDiameter, &form.fpSpread1}) {
      EXPECT_TRUE(form.Press(Plain(KeyCode::kF6)));
      EXPECT_EQ(form.focus(), next);
    }
    form.MoveFocus(&form.TxtVelocity);
    form.Press(Plain(KeyCode::kF6));
    EXPECT_EQ(form.focus(), &form.fpSpread1) << "from anywhere in the picks";
    Choose(form, "4");
    form.fpSpread2.on_activate();
    EXPECT_EQ(form.fpSpread1.At(5, 2).text, "4") << "a double click replaces";
    const auto& entries = form.menus.front().entries;
    EXPECT_EQ(entries.front().name, "mnuActs_Change");
    EXPECT_EQ(entries.front().caption, "Αντικατάσταση των Διαμέτρων");
    EXPECT_EQ(entries.back().caption, "Επιστροφή στα Αποτελέσματα");
    EXPECT_FALSE(form.MayClose());
  }));
  EXPECT_EQ(navigator.waits, (std::vector<std::string>{"... Παρακαλώ, Περιμένετε ...", "-",
                                                       "... Παρακαλώ, Περιμένετε ...", "-"}));
  EXPECT_NE(test.Bytes(), before);
  test.prompter.Expect(307, Answer::kNo);
  Click(*view, view->CmdBack);
  EXPECT_EQ(test.Bytes(), before);
}

TEST_F(ManyDiameters, TakesALibraryThatHasChangedAnew) {
  const std::string before = test.Bytes();
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    std::vector<PipeRow> fewer = SteelPipes();
    fewer.resize(3);
    PutPipes(test, "0001.WPT", fewer);
    Replace(form, {1, 2}, "4");
    EXPECT_EQ(test.Bytes(), before);
    EXPECT_TRUE(form.LblHint.visible);
    EXPECT_EQ(form.fpSpread2.At(3, 0).text, "");
    EXPECT_EQ(form.fpSpread2.current().row, -1);
    EXPECT_EQ(SelectedIn(form), (std::vector{1, 2}));
    Replace(form, {1, 2}, fewer[2].nominal_diameter.Utf8());
    EXPECT_EQ(test.Row(1).NomiDiam.Utf8(), fewer[2].nominal_diameter.Utf8());
  }));
}

TEST_F(ManyDiametersOfTheSheet, ReplacesInTheRowsThatAreMeantWhereGridsAreSorted) {
  view->fpSpread1.CycleSort(5);
  const auto order = view->fpSpread1.order();
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    form.fpSpread1.CycleSort(1);
    form.fpSpread1.CycleSort(1);
    EXPECT_EQ(form.fpSpread1.order()[1], 5);
    Select(form, {2, 5});
    Choose(form, "4");
    Click(form, form.CmdChange);
    EXPECT_EQ(SelectedIn(form), (std::vector{2, 5}));
    Click(form, form.CmdBack);
  }));
  for (int number = 1; number <= 6; ++number) {
    EXPECT_EQ(test.Row(number).NomiDiam.Utf8() == "4", number == 2 || number == 5);
  }
  EXPECT_EQ(view->fpSpread1.At(4, 2).text, "4");
  EXPECT_EQ(view->fpSpread1.order().size(), order.size());
  EXPECT_EQ(desk.screens.results_view, ResultsView::kSheet);
}

TEST_F(ManyDiameters, ShowsDiametersThatCannotBeCalculatedAsThoseThatWait) {
  const std::string before = test.Bytes();
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    test.ChangeRow(6, [](SectionRow& row) { row.WaterFlow = 0; });
    Replace(form, {1, 2}, "4");
    Click(form, form.CmdBack);
  }));
  EXPECT_EQ(TakeLog().back(), "close FrmChang");
  EXPECT_FALSE(test.prompter.boxes().empty());
  EXPECT_TRUE(test.study.recalculation_needed);
  EXPECT_EQ(view->TxtNomiDiam.tone, Tone::kWaiting);
  test.prompter.Expect(307, Answer::kNo);
  Click(*view, view->CmdBack);
  EXPECT_EQ(test.Bytes(), before);
}

TEST_F(ManyDiameters, StaysUsableWhereTheRowsHaveVanished) {
  const std::string before = test.Bytes();
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    test.workspace.Delete(work_file::kRows);
    Replace(form, {1, 2}, "4");
    EXPECT_FALSE(test.workspace.Exists(work_file::kRows)) << "no rows are made up";
    EXPECT_EQ(test.prompter.boxes().size(), 1U);
    EXPECT_FALSE(form.fpSpread1.IsBlank(5)) << "what was shown stays";
    ASSERT_TRUE(test.workspace.Write(work_file::kRows, before).ok());
    Replace(form, {1, 2}, "4");
    EXPECT_EQ(test.Row(2).NomiDiam.Utf8(), "4");
    Click(form, form.CmdBack);
  }));
  EXPECT_LT(test.Row(1).InDiameter, 0);
}

// Whatever operation of the disk fails, the rows are those of before or of after, whole, and the
// results stay open.
// Gives whether it went on to that operation, or read of the rows.
bool FailsAt(int number, bool reads, bool menu) {
  ManyDesk<FrmRes> desk;
  desk.Load();
  TestBench& test = desk.test;
  const std::string before = test.Bytes();
  FailingDisk disk(test.work_disk);
  test.workspace = Workspace(disk, TestBench::kProgramFolder, test.outer_disk,
                             TestBench::kLibraryFolder, test.clock);
  if (reads) {
    disk.FailAtRead(number, work_file::kRows);
  } else {
    disk.FailAtOperation(number, FailingDisk::Lasting::kOnce);
  }
  const bool opened =
      desk.Change(menu ? desk.view->CmdChangeMany : desk.view->CmdNewD, {1, 3}, "4");
  const bool reached = (reads ? disk.reads() : disk.operations()) >= number;
  disk.Mend();
  EXPECT_TRUE(opened || !test.prompter.boxes().empty());
  EXPECT_EQ(test.Rows().size(), 6U);
  EXPECT_EQ(test.Bytes(work_file::kFirstRows), before);
  const bool changed = test.Bytes() != before;
  EXPECT_EQ(test.Row(1).NomiDiam.Utf8() == "4", changed);
  EXPECT_EQ(test.Row(3).NomiDiam.Utf8() == "4", changed);
  EXPECT_TRUE(changed || !test.prompter.boxes().empty()) << "the user was told";
  if (changed) test.prompter.Expect(307, Answer::kNo);
  Click(*desk.view, desk.view->CmdBack);
  EXPECT_EQ(test.Bytes(), before);
  return reached;
}

TEST(FailingDiskAtManyDiameters, LosesNoRows) {
  for (const bool menu : {false, true}) {
    for (const bool reads : {false, true}) {
      bool reached = true;
      for (int number = 1; reached; ++number) {
        SCOPED_TRACE(std::string(menu ? "menu" : "button") + (reads ? ", read " : ", operation ") +
                     std::to_string(number));
        reached = FailsAt(number, reads, menu);
      }
    }
  }
}

}  // namespace
}  // namespace kalvo

#include "results/frm_chang.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "results/frm_res.h"
#include "results/frm_res_sheet.h"
#include "tests/results/many_desk.h"

namespace kalvo {
namespace {

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
    EXPECT_EQ(TakeLog().back(), "show FrmRes");
    EXPECT_EQ(view->focus(), &view->CmdNext) << "not the command that led there";
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
  EXPECT_EQ(TakeLog().back(), "show FrmRes");
  EXPECT_FALSE(test.prompter.boxes().empty());
  EXPECT_TRUE(test.study.recalculation_needed);
  EXPECT_EQ(view->TxtNomiDiam.tone, Tone::kWaiting);
  test.prompter.Expect(307, Answer::kNo);
  Click(*view, view->CmdBack);
  EXPECT_EQ(test.Bytes(), before);
}

TEST_F(ManyDiameters, AreCalculatedOnceTheDiametersOfAFailedRunAreTakenBack) {
  const SectionRow flow = test.Row(6);
  EXPECT_TRUE(Change(view->CmdNewD, {2}, "4"));
  const std::string good = test.Bytes();
  const std::string own = test.Row(1).NomiDiam.Utf8();
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    test.ChangeRow(6, [](SectionRow& row) { row.WaterFlow = 0; });
    Replace(form, {1}, "4");
    Click(form, form.CmdBack);
  }));
  EXPECT_TRUE(test.study.recalculation_needed);
  EXPECT_TRUE(Within(view->CmdNewD, [&](FrmChang& form) {
    test.ChangeRow(6, [&](SectionRow& row) { row.WaterFlow = flow.WaterFlow; });
    Replace(form, {1}, own);
    Click(form, form.CmdBack);
  }));
  EXPECT_FALSE(test.study.recalculation_needed);
  EXPECT_TRUE(test.Bytes() == good);
}

TEST_F(ManyDiameters, TakenBackFromTheMenuAreNotBroughtBackByItsCopy) {
  EXPECT_TRUE(Change(view->CmdNewD, {1}, "4"));
  EXPECT_TRUE(Change(view->CmdNewD, {2}, "4"));
  EXPECT_TRUE(Within(view->CmdChangeMany, [&](FrmChang& form) {
    EXPECT_TRUE(form.Press(Ctrl('Z')));
    Click(form, form.CmdBack);
  }));
  EXPECT_NE(test.Row(2).NomiDiam.Utf8(), "4");
  EXPECT_TRUE(test.Bytes(work_file::kRowsBeforeChange) == test.Bytes());
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

}  // namespace
}  // namespace kalvo

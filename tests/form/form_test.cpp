#include "form/form.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

struct SmallForm : Form {
  explicit SmallForm(Desk& shared_desk) : Form(shared_desk) {
    temperature.on_leave = [this] { return temperature.Number(desk.separators) <= 100; };
  }
  Field temperature{*this, "temperature", KeyFamily::kSignedDecimal};
  Field title_text{*this, "title_text"};
  Command accept{*this, "accept", "Αποδοχή", [this] { ++accepted; }, {Ctrl('C')}};
  Command back{*this, "back", "Επιστροφή", [this] { ++left; }, {Plain(KeyCode::kEscape)}};
  int accepted = 0;
  int left = 0;
};

struct FormRules : TestDesk, ::testing::Test {
  SmallForm form{desk};
};

TEST_F(FormRules, AFieldThatMustNotBeLeftKeepsTheFocusAndStopsCommands) {
  form.back.leaves_freely = true;
  TypeInto(form, form.temperature, "105");
  EXPECT_FALSE(form.MoveFocus(&form.title_text));
  EXPECT_EQ(form.focus(), &form.temperature);
  form.Press(Ctrl('C'));
  EXPECT_EQ(form.accepted, 0);
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(form.left, 1) << "leaving without accepting is always possible";
}

TEST_F(FormRules, AnActionThatBrokeOffIsWrittenDownAndToldAsFarAsItIsKnown) {
  struct NotedFaults : FaultLog {
    void Note(const FaultNote& note) override { texts.push_back(note.text); }
    std::vector<std::string> texts;
  } log;
  test.bench.fault_log = &log;
  test.PutNetwork({"ANT/1 5m", "1/ANT 5m soma 300l/h 100mm"});
  Fault in_row(FaultCode::kOverflow, "value outside 16 bits");
  in_row.SetRow(2);
  form.TellBroken(in_row);
  form.TellBroken(Fault(FileError{"/program/DATARES.TMP", "Σφάλμα του δίσκου"}));
  form.TellBroken(std::out_of_range("map::at"));
  const auto told = [&](std::size_t box) { return test.prompter.boxes().at(box).lines; };
  using Lines = std::vector<std::string>;
  const std::string first = "... Η εντολή ΔΕΝ ολοκληρώθηκε ...";
  EXPECT_EQ(told(0), (Lines{first, "... Σφάλμα < 6 >, στο Τμήμα με α/α < 2 > : 1/ANT ..."}));
  EXPECT_EQ(told(1),
            (Lines{first, "... Σφάλμα < 57 > : Σφάλμα του δίσκου : /program/DATARES.TMP ..."}));
  EXPECT_EQ(told(2), (Lines{first, "... Σφάλμα του προγράμματος < map::at > ..."}));
  EXPECT_EQ(log.texts, (Lines{"value outside 16 bits", "Σφάλμα του δίσκου : /program/DATARES.TMP",
                              "map::at"}));
}

TEST_F(FormRules, PointAndCommaBothTypeTheDecimalSeparator) {
  for (const char* typed : {"60.5", "60,5"}) {
    TypeInto(form, form.temperature, typed);
    EXPECT_EQ(form.temperature.text, "60,5");
    EXPECT_TRUE(PasteInto(form, form.temperature, typed));
    EXPECT_EQ(form.temperature.text, "60,5");
  }
  form.Type(form.temperature, {"60,", ".", "5"});
  EXPECT_EQ(form.temperature.text, "60,,5") << "told of when the field is left";
  for (const char* pasted : {"1.234,5", "1,234.5"}) {
    EXPECT_TRUE(PasteInto(form, form.temperature, pasted));
    EXPECT_EQ(form.temperature.text, "1234,5") << "of two signs the last is the decimal one";
  }
  EXPECT_TRUE(PasteInto(form, form.temperature, "-1.234.567"));
  EXPECT_EQ(form.temperature.text, "-1234567");
  EXPECT_FALSE(PasteInto(form, form.temperature, "1.2.5"));
  EXPECT_FALSE(PasteInto(form, form.temperature, "12.34,5"));
  EXPECT_TRUE(PasteInto(form, form.temperature, " 12.5\n"));
  EXPECT_EQ(form.temperature.text, "12,5");
  TypeInto(form, form.title_text, "1.5");
  EXPECT_EQ(form.title_text.text, "1.5");
}

TEST_F(FormRules, KeysOfTheGreekLayoutReachTheCommandOnTheSameKey) {
  EXPECT_EQ(LatinOnSameKey(U'ψ'), U'C');
  EXPECT_EQ(LatinOnSameKey(U'Σ'), U'S');
  EXPECT_EQ(LatinOnSameKey(U'ς'), U'W');
  EXPECT_EQ(LatinOnSameKey(U'z'), U'Z');
  EXPECT_EQ(LatinOnSameKey(U'5'), U'5');
  EXPECT_EQ(KeyText({KeyCode::kHome, 0, true, false, false}), "Ctrl+Home");
  EXPECT_EQ(KeyText(Shift(KeyCode::kF12)), "Shift+F12");
}

TEST_F(FormRules, ANumberShownRoundedKeepsItsWholeValueUntilItIsEdited) {
  form.temperature.ShowNumber(0.75F, "#,##0.0", desk.separators);
  EXPECT_EQ(form.temperature.text, "0,8");
  EXPECT_EQ(form.temperature.Number(desk.separators), 0.75);
  form.temperature.ShowNumber(12345.25F, "#,##0.0", desk.separators);
  EXPECT_TRUE(form.MoveFocus(&form.title_text)) << "nothing is asked of a field without the focus";
  form.MoveFocus(&form.temperature);
  EXPECT_EQ(form.temperature.text, "12345,3");
  EXPECT_TRUE(form.temperature.whole_selected);
  EXPECT_EQ(form.temperature.Number(desk.separators), 12345.25);
  TypeInto(form, form.temperature, "0,8");
  EXPECT_EQ(form.temperature.Number(desk.separators), 0.8);
}

TEST_F(FormRules, APastedTextIsOnOneLineWithItsAccentsJoinedAndCutToItsRoom) {
  Field& field = form.title_text;
  field.max_bytes = 12;
  EXPECT_TRUE(PasteInto(form, field, "\n\r\nΚτι\u0301ριο\r\nΑ\t1\n"));
  EXPECT_EQ(field.text, "Κτίριο Α 1");
  EXPECT_TRUE(form.Type(field, {"Κτίριο", "\n-Β\n", " Α 1"}));
  EXPECT_EQ(field.text, "Κτίριο-Β Α 1") << "line ends at the ends go, wherever it is pasted";
  EXPECT_EQ(sound.beeps, 0);
  EXPECT_FALSE(form.Type(field, {"Κτίριο-Β", "γ", " Α 1"}));
  EXPECT_TRUE(PasteInto(form, field, "Γραφεία ορόφου 2"));
  EXPECT_EQ(field.text, "Γραφεία ορόφ");
  EXPECT_EQ(field.refusal(), "Το κείμενο κόπηκε: χωρούν έως 12 χαρακτήρες");
  EXPECT_EQ(sound.beeps, 2);
  TypeInto(form, field, "Κτι\u0301ριο");
  EXPECT_EQ(field.text, "Κτίριο");
  field.locked = true;
  EXPECT_FALSE(PasteInto(form, field, "x"));
}

TEST_F(FormRules, ACharacterThatIsNotTheFieldsIsRefusedSoThatTheUserNotices) {
  Field& field = form.title_text;
  TypeInto(form, field, "Α水");
  EXPECT_EQ(field.text, "Α");
  EXPECT_EQ(field.refusal(), "Δεν γράφεται εδώ ο χαρακτήρας 水 (U+6C34)");
  TypeInto(form, field, "Β");
  EXPECT_EQ(field.refusal(), "") << "until the next edit";
  EXPECT_FALSE(PasteInto(form, field, "Γ\u200BΔ"));
  EXPECT_NE(field.refusal().find("U+200B"), std::string::npos);
  EXPECT_EQ(field.text, "Β");
  EXPECT_EQ(sound.beeps, 2);

  TypeInto(form, form.temperature, "1a2");
  EXPECT_EQ(field.refusal(), "") << "or until it is left";
  EXPECT_EQ(form.temperature.text, "12");
  EXPECT_EQ(sound.beeps, 2) << "a letter in a number becomes nothing";
  for (const char* pasted : {"12 kg", "1234567890123456"}) {
    EXPECT_FALSE(PasteInto(form, form.temperature, pasted));
    EXPECT_NE(form.temperature.refusal(), "");
  }
  EXPECT_EQ(form.temperature.text, "12") << "a number is never cut";
}

TEST(GridRules, SortingChangesTheViewOnlyAndTheThirdTimeRestoresIt) {
  TestDesk desk;
  SmallForm form(desk.desk);
  Grid grid(form, "grid");
  grid.Reset({{"ΟΝΟΜΑ", 8, false}, {"ΠΑΡΟΧΗ", 10}}, 3);
  const std::array<double, 3> flows = {900, 1200, 80};
  for (int row = 0; row < 3; ++row) {
    grid.Set(row, 0, {"N" + std::to_string(row)});
    grid.Set(row, 1,
             {std::to_string(static_cast<int>(flows[static_cast<std::size_t>(row)])), Tone::kPlain,
              flows[static_cast<std::size_t>(row)]});
  }
  grid.CycleSort(1);
  EXPECT_EQ(grid.order(), (std::vector{2, 0, 1}));
  const std::vector<GridPlace> places = {{0, 0}, {0, 1}, {2, 1}};
  EXPECT_EQ(grid.Copy(places), "\t80\nN0\t900");
  grid.CycleSort(1);
  EXPECT_EQ(grid.order(), (std::vector{1, 0, 2}));
  grid.CycleSort(1);
  EXPECT_EQ(grid.order(), (std::vector{0, 1, 2}));
  EXPECT_EQ(grid.At(1, 1).text, "1200");
}

// A grid of five rows, the last of which holds nothing, with the focus.
struct RowSelection : ::testing::Test {
  RowSelection() {
    grid.selects_rows = true;
    grid.on_select = [this] { ++told; };
    grid.Reset({{"ΟΝΟΜΑ", 8, false}}, 5, 1);
    for (int row = 0; row < 4; ++row) grid.Set(row, 0, {std::string(1, "cadb"[row])});
    form.Focus(grid);
  }
  using Rows = std::vector<int>;

  TestDesk desk;
  SmallForm form{desk.desk};
  Grid grid{form, "grid"};
  int told = 0;
};

TEST_F(RowSelection, IsOfTheTablesRowsWhateverTheOrderShown) {
  grid.TakeSelection(Rows{3, 1, 4, 1});
  EXPECT_EQ(grid.SelectedRows(), (Rows{1, 3})) << "what holds nothing is never selected";
  grid.CycleSort(0);
  EXPECT_EQ(grid.order().front(), 1);
  EXPECT_EQ(grid.SelectedRows(), (Rows{1, 3}));
  grid.TakeSelection(Rows{3, 1});
  EXPECT_EQ(told, 1) << "it is the same";
  grid.Select(0, true);
  EXPECT_TRUE(grid.IsSelected(0));
  EXPECT_EQ(told, 1) << "the form knows what it does itself";
  grid.Reset({{"ΟΝΟΜΑ", 8, false}}, 5, 1);
  EXPECT_EQ(grid.SelectedRows(), Rows());
}

TEST_F(RowSelection, FollowsRowsThatComeAndGo) {
  grid.Reset({{"ΟΝΟΜΑ", 8, false}}, 4);
  grid.TakeSelection(Rows{0, 2});
  grid.InsertRows(1, 2);
  EXPECT_EQ(grid.SelectedRows(), (Rows{0, 4}));
  grid.RemoveRows(0, 2);
  EXPECT_EQ(grid.SelectedRows(), Rows{2});
}

TEST_F(RowSelection, IsMadeBySpaceAndCtrlAOnAnyKeyboard) {
  grid.MoveTo({2, 0});
  EXPECT_TRUE(form.Press(Typed(' ')));
  EXPECT_TRUE(form.Press(Ctrl(' ')));
  EXPECT_EQ(grid.SelectedRows(), Rows());
  EXPECT_TRUE(form.Press(Typed(' ')));
  grid.MoveTo({0, 0});
  EXPECT_TRUE(form.Press(Typed(' ')));
  EXPECT_EQ(grid.SelectedRows(), (Rows{0, 2}));
  EXPECT_TRUE(form.Press(Ctrl('A')));
  EXPECT_EQ(grid.SelectedRows(), (Rows{0, 1, 2, 3}));
  grid.selects_rows = false;
  EXPECT_FALSE(form.Press(Ctrl('A'))) << "a grid of cells leaves the key to the table";
}

}  // namespace
}  // namespace kalvo

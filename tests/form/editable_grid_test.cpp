#include "form/editable_grid.h"

#include <gtest/gtest.h>

#include "form/form.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

// Five rows of a text, a locked cell and two numbers.
struct GridForm : Form {
  explicit GridForm(Desk& shared_desk) : Form(shared_desk) {
    grid.Reset(std::vector<GridColumn>(4), 5);
    grid.SetTyping({{KeyFamily::kText, 3, -1, false},
                    {KeyFamily::kText, 0, -1, true},
                    {KeyFamily::kUnsignedDecimal, 0, 2, false},
                    {KeyFamily::kUnsignedWhole, 0, -1, false}});
    grid.on_accept = [this](GridPlace at, const std::string& text) {
      if (text == "99") return false;
      grid.Set(at.row, at.column, {text});
      return true;
    };
    Focus(grid);
  }
  EditableGrid grid{*this, "grid"};
  Field other{*this, "other"};
  Command go{*this, "go", "Go", [this] { ++gone; }, {Ctrl('G')}};
  int gone = 0;
};

struct GridEditing : TestDesk, ::testing::Test {
  GridForm form{desk};

  void Type(std::string_view text) {
    while (!text.empty()) {
      const Key key = Typed(TakeCharacter(text));
      if (form.Press(key)) continue;
      std::string piece;
      AppendUtf8(piece, key.character);
      const std::string before = form.grid.editor.text;
      form.Type(form.grid.editor, {before, piece, ""});
    }
  }
  void Press(std::initializer_list<Key> keys) {
    for (const Key& key : keys) form.Press(key);
  }
  [[nodiscard]] std::string At(int row, int column) const { return form.grid.At(row, column).text; }
  [[nodiscard]] std::string Place() const {
    return std::to_string(form.grid.current().row) + "," +
           std::to_string(form.grid.current().column);
  }
};

TEST_F(GridEditing, TypingReplacesF2EditsAndEscGivesUp) {
  Type("ab");
  EXPECT_TRUE(form.grid.editing());
  EXPECT_EQ(form.focus(), &form.grid.editor);
  Press({Plain(KeyCode::kEnter)});
  EXPECT_EQ(At(0, 0), "ab");
  EXPECT_EQ(Place(), "0,2") << "past the locked cell";
  EXPECT_EQ(form.focus(), &form.grid);
  Press({Shift(KeyCode::kTab), Plain(KeyCode::kF2)});
  Type("c");
  Press({Plain(KeyCode::kDown)});
  EXPECT_EQ(At(0, 0), "abc");
  EXPECT_EQ(Place(), "1,0");
  Press({Plain(KeyCode::kUp)});
  Type("x");
  Press({Plain(KeyCode::kEscape)});
  EXPECT_EQ(At(0, 0), "abc");
  EXPECT_FALSE(form.grid.editing());
  Press({Plain(KeyCode::kBackspace), Plain(KeyCode::kEnter)});
  EXPECT_EQ(At(0, 0), "");
}

TEST_F(GridEditing, ARefusedTextGetsTheKeysBackAndAnAcceptedOneGivesThemToTheGrid) {
  Press({Plain(KeyCode::kRight), Plain(KeyCode::kRight)});
  Type("99");
  const int moves = form.focus_moves();
  Press({Plain(KeyCode::kEnter)});
  EXPECT_GT(form.focus_moves(), moves) << "a box may have taken them";
  EXPECT_EQ(form.focus(), &form.grid.editor);
  Type("8");
  ASSERT_TRUE(form.grid.Accept());
  form.grid.TakeSelection({{1, 0, 1, 0}}, {1, 0});
  EXPECT_EQ(form.focus(), &form.grid);
}

TEST_F(GridEditing, AColumnTakesItsOwnCharactersAndARefusalIsHeard) {
  Press({Plain(KeyCode::kRight)});
  Type("1.234");
  EXPECT_EQ(form.grid.editor.text, "1,23") << "two decimals";
  EXPECT_EQ(sound.beeps, 1);
  Type(",");
  EXPECT_EQ(form.grid.editor.text, "1,23") << "one separator";
  Press({Plain(KeyCode::kTab)});
  Type("-");
  EXPECT_FALSE(form.grid.editing()) << "a refused character opens nothing";
  Type("1.5");
  EXPECT_EQ(form.grid.editor.text, "15");
  Press({Plain(KeyCode::kRight)});
  EXPECT_EQ(At(0, 3), "15");
  EXPECT_EQ(sound.beeps, 3);
}

TEST_F(GridEditing, LeavingAcceptsWhateverTheRoad) {
  Type("a");
  Press({Ctrl('G')});
  EXPECT_EQ(At(0, 0), "a");
  EXPECT_EQ(form.gone, 1);
  EXPECT_EQ(form.focus(), &form.grid);
  Type("b");
  EXPECT_TRUE(form.MoveFocus(&form.other));
  EXPECT_EQ(At(0, 0), "b");
  EXPECT_EQ(form.focus(), &form.other);
  form.Focus(form.grid);
  Type("99");
  EXPECT_FALSE(form.MoveFocus(&form.other)) << "a text that is not accepted keeps the editor open";
  EXPECT_TRUE(form.grid.editing());
  Press({Plain(KeyCode::kEscape)});
  EXPECT_EQ(At(0, 0), "b");
}

TEST_F(GridEditing, KeysMoveAndExtendTheSelection) {
  form.grid.used_rows = 3;
  for (int row = 0; row < 3; ++row) form.grid.Set(row, 0, {"x"});
  Press({Ctrl(KeyCode::kDown)});
  EXPECT_EQ(Place(), "2,0");
  Press({Ctrl(KeyCode::kHome), Shift(KeyCode::kDown), Shift(KeyCode::kRight)});
  EXPECT_EQ(form.grid.block(), (GridBlock{0, 0, 1, 1}));
  Press({CtrlShift(KeyCode::kEnd)});
  EXPECT_EQ(form.grid.block(), (GridBlock{0, 0, 2, 3}));
  Press({Plain(KeyCode::kEnter)});
  EXPECT_EQ(Place(), "3,0") << "from the end of a row to the next";
  Press({Shift(KeyCode::kEnter)});
  EXPECT_EQ(Place(), "2,3");
  Press({Ctrl('A')});
  EXPECT_EQ(form.grid.block(), (GridBlock{0, 0, 2, 3}));
  form.grid.TakeSelection({{0, 0, 0, 0}, {2, 2, 3, 3}}, {2, 2});
  EXPECT_TRUE(form.grid.IsSelected({0, 0}));
  Press({Shift(KeyCode::kUp)});
  EXPECT_EQ(form.grid.block(), (GridBlock{1, 2, 3, 3})) << "the corner across stays";
}

TEST_F(GridEditing, RowsComeAndGoAsSuchAndTheCurrentCellStaysOnItsRow) {
  form.grid.TakeChanges();
  form.grid.GoTo({2, 0});
  form.grid.InsertRows(1, 2);
  EXPECT_EQ(Place(), "4,0");
  form.grid.RemoveRows(0, 1);
  EXPECT_EQ(Place(), "3,0");
  form.grid.Set(3, 0, {"x"});
  form.grid.Set(3, 0, {"x"});
  using Kind = GridChange::Kind;
  EXPECT_EQ(form.grid.TakeChanges(),
            (std::vector<GridChange>{
                {Kind::kInserted, 1, 2}, {Kind::kRemoved, 0, 0}, {Kind::kCells, 3, 3}}));
  for (int i = 0; i < 100; ++i) form.grid.InsertRows(0, 1);
  EXPECT_EQ(form.grid.TakeChanges(), (std::vector<GridChange>{{Kind::kReset, 0, 0}}))
      << "what nobody looks at does not grow";
}

}  // namespace
}  // namespace kalvo

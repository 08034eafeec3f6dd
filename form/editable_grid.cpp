#include "form/editable_grid.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "form/form.h"

namespace kalvo {
namespace {

constexpr int kZoomStep = 10;
constexpr int kSmallest = 50;
constexpr int kLargest = 200;

bool IsArrow(KeyCode code) {
  return code == KeyCode::kLeft || code == KeyCode::kRight || code == KeyCode::kUp ||
         code == KeyCode::kDown;
}

bool IsMove(KeyCode code) {
  return IsArrow(code) || code == KeyCode::kHome || code == KeyCode::kEnd ||
         code == KeyCode::kPageUp || code == KeyCode::kPageDown;
}

bool IsStep(const Key& key) {
  return (key.code == KeyCode::kEnter || key.code == KeyCode::kTab) && !key.ctrl && !key.alt;
}

}  // namespace

EditableGrid::EditableGrid(Form& form, std::string_view name)
    : Grid(form, name), editor(form, std::string(name) + "Editor"), form_(form) {
  editor.visible = false;
  editor.on_leave = [this] { return Accept(); };
  editor.forbids = [this](std::string_view text) { return WhyNot(text); };
}

const CellTyping& EditableGrid::TypingOf(int column) const {
  static const CellTyping kAnyText;
  const auto at = static_cast<std::size_t>(column);
  return at < typing_.size() ? typing_[at] : kAnyText;
}

std::string EditableGrid::WhyNot(std::string_view text) const {
  if (!editor.numeric() || text.size() < editor.text.size()) return {};
  const std::size_t sign = text.find_first_of(".,");
  if (sign == std::string_view::npos) return {};
  if (text.find_first_of(".,", sign + 1) != std::string_view::npos) {
    return "Ένα μόνο δεκαδικό σημείο";
  }
  const int decimals = TypingOf(current().column).decimals;
  if (decimals >= 0 && text.size() - sign - 1 > static_cast<std::size_t>(decimals)) {
    return "Έως " + std::to_string(decimals) + " δεκαδικά ψηφία";
  }
  return {};
}

bool EditableGrid::IsSelected(GridPlace place) const {
  return std::ranges::any_of(selection_,
                             [place](const GridBlock& block) { return block.Contains(place); });
}

void EditableGrid::Selected(bool by_user) {
  ++selection_revision_;
  if (by_user && on_select) on_select();
}

void EditableGrid::GoTo(GridPlace place, bool extend) {
  if (!Accept()) return;
  SetCurrent(place);
  if (!extend) anchor_ = current();
  const GridPlace now = current();
  selection_ = {{std::min(anchor_.row, now.row), std::min(anchor_.column, now.column),
                 std::max(anchor_.row, now.row), std::max(anchor_.column, now.column)}};
  Selected(true);
  if (on_move) on_move();
}

void EditableGrid::SelectBlock(const GridBlock& block) {
  SetCurrent({block.top, block.left});
  anchor_ = {block.bottom, block.right};
  selection_ = {block};
  Selected(false);
}

void EditableGrid::TakeSelection(std::vector<GridBlock> blocks, GridPlace current_place) {
  if (blocks.empty()) {
    blocks = {{current_place.row, current_place.column, current_place.row, current_place.column}};
  }
  if (form_.focus() == &editor && !editing_) form_.Focus(*this);
  SetCurrent(current_place);
  const auto holds = [this](const GridBlock& block) { return block.Contains(current()); };
  const auto active = std::ranges::find_if(blocks, holds);
  if (active != blocks.end()) std::rotate(active, active + 1, blocks.end());
  selection_ = std::move(blocks);
  // Shift goes on from the corner across.
  const GridBlock& last = selection_.back();
  anchor_.row = current().row == last.top ? last.bottom : last.top;
  anchor_.column = current().column == last.left ? last.right : last.left;
  Selected(true);
  if (on_move) on_move();
}

bool EditableGrid::SelectionFits() const {
  const auto fits = [this](const GridBlock& block) { return block.bottom < row_count(); };
  return anchor_.row < row_count() && std::ranges::all_of(selection_, fits);
}

void EditableGrid::CollapseSelection() {
  SetCurrent(current());
  anchor_ = current();
  selection_ = {{anchor_.row, anchor_.column, anchor_.row, anchor_.column}};
  Selected(false);
}

void EditableGrid::ZoomBy(int steps) {
  zoom_ = std::clamp(zoom_ + steps * kZoomStep, kSmallest, kLargest);
}

// The editor takes what the column of the current cell takes.
void EditableGrid::OpenEditor(bool by_typing) {
  const CellTyping& typing = TypingOf(current().column);
  CollapseSelection();
  editor.family = typing.family;
  constexpr std::size_t kLongestNumber = 15;
  editor.max_bytes = typing.max_characters != 0 ? typing.max_characters
                     : editor.numeric()         ? kLongestNumber
                                                : 0;
  editor.visible = true;
  editing_ = true;
  replaced_ = false;
  by_typing_ = by_typing;
  form_.Focus(editor);
  editor.whole_selected = opens_selected && !by_typing;
}

void EditableGrid::Open() {
  if (editing_ || IsLocked(current().column)) return;
  editor.Show(text_of ? text_of(current()) : At(current().row, current().column).text);
  OpenEditor(false);
}

void EditableGrid::OpenWith(std::string_view text) {
  if (IsLocked(current().column)) return;
  if (!editing_) OpenEditor(true);
  editor.Show(text);
  replaced_ = true;
}

void EditableGrid::CloseEditor() {
  editing_ = false;
  editor.visible = false;
}

bool EditableGrid::Accept() {
  if (!editing_) return true;
  CloseEditor();  // first: what follows may look at the grid
  // What nobody edited stays as it is, also where it could not be typed.
  if (!editor.edited() && !replaced_) return true;
  if (!on_accept || on_accept(current(), editor.text)) return true;
  editing_ = editor.visible = true;
  form_.Focus(editor);  // a box may have taken the keys
  return false;
}

void EditableGrid::GiveUp() {
  if (!editing_) return;
  CloseEditor();
  form_.Focus(*this);
}

// To the next cell that can be edited, from the end of a row to the next one.
void EditableGrid::Step(int direction) {
  GridPlace place = current();
  for (int tries = 0; tries < 2 * column_count(); ++tries) {
    place.column += direction;
    if (place.column < 0 || place.column >= column_count()) {
      place.row += direction;
      place.column = direction > 0 ? 0 : column_count() - 1;
    }
    if (place.row < 0 || place.row >= row_count()) return;
    if (!IsLocked(place.column)) break;
  }
  GoTo(place);
}

// Down its column, from the end on to the next column that can be edited.
void EditableGrid::StepDown(int direction) {
  GridPlace place = current();
  place.row += direction;
  const bool on = place.row >= 0 && place.row < row_count();
  if (!on) {
    place.row = direction > 0 ? 0 : row_count() - 1;
    do {
      place.column += direction;
    } while (place.column >= 0 && place.column < column_count() && IsLocked(place.column));
  }
  if (place.column >= 0 && place.column < column_count()) GoTo(place);
}

bool EditableGrid::IsFilled(GridPlace place) const {
  return place.row >= 0 && place.row < row_count() && place.column >= 0 &&
         place.column < column_count() && !At(place.row, place.column).text.empty();
}

// As far as cells are filled, or to the next that is; past all of them to the end.
GridPlace EditableGrid::Leap(int down, int right) const {
  const auto next = [=](GridPlace at) { return GridPlace{at.row + down, at.column + right}; };
  const int last_row = std::max(used_rows - 1, current().row);
  const auto inside = [&](GridPlace at) {
    return at.row >= 0 && at.row <= last_row && at.column >= 0 && at.column < column_count();
  };
  GridPlace place = current();
  const bool run = IsFilled(place) && IsFilled(next(place));
  while (inside(next(place))) {
    if (run && !IsFilled(next(place))) break;
    place = next(place);
    if (!run && IsFilled(place)) break;
  }
  return place;
}

GridPlace EditableGrid::Target(const Key& key) const {
  GridPlace place = current();
  switch (key.code) {
    case KeyCode::kLeft:
      return key.ctrl ? Leap(0, -1) : GridPlace{place.row, place.column - 1};
    case KeyCode::kRight:
      return key.ctrl ? Leap(0, 1) : GridPlace{place.row, place.column + 1};
    case KeyCode::kUp:
      return key.ctrl ? Leap(-1, 0) : GridPlace{place.row - 1, place.column};
    case KeyCode::kDown:
      return key.ctrl ? Leap(1, 0) : GridPlace{place.row + 1, place.column};
    case KeyCode::kHome:
      return {key.ctrl ? 0 : place.row, 0};
    case KeyCode::kEnd:
      return {key.ctrl ? std::max(used_rows - 1, 0) : place.row, column_count() - 1};
    case KeyCode::kPageUp:
      return {place.row - page_rows, place.column};
    default:
      return {place.row + page_rows, place.column};
  }
}

bool EditableGrid::PressMove(const Key& key) {
  if (key.alt) return false;
  if (IsStep(key)) {
    const int direction = key.shift ? -1 : 1;
    enter_goes_down&& key.code == KeyCode::kEnter ? StepDown(direction) : Step(direction);
    return true;
  }
  if (!IsMove(key.code)) return false;
  GridPlace target = Target(key);
  // A plain arrow passes over what cannot be edited.
  const int direction = key.code == KeyCode::kLeft ? -1 : 1;
  const bool sideways = key.code == KeyCode::kLeft || key.code == KeyCode::kRight;
  while (sideways && !key.shift && target.column >= 0 && target.column < column_count() &&
         IsLocked(target.column)) {
    target.column += direction;
  }
  GoTo(target, key.shift);
  return true;
}

// A character begins a new text; one that the column does not take leaves the cell as it was.
EditableGrid::KeyEnd EditableGrid::OpenTyping(const Key& key) {
  if (IsLocked(current().column)) return KeyEnd::kTaken;
  const std::vector<GridBlock> selection = selection_;
  const GridPlace anchor = anchor_;
  editor.Show("");
  OpenEditor(true);
  std::string piece;
  AppendUtf8(piece, key.character);
  if (!form_.Type(editor, {"", piece, ""})) {
    GiveUp();
    selection_ = selection;
    anchor_ = anchor;
    Selected(false);
  }
  return KeyEnd::kTaken;
}

EditableGrid::KeyEnd EditableGrid::PressOnCell(const Key& key) {
  if (PressMove(key)) return KeyEnd::kTaken;
  if (key == Plain(KeyCode::kF2)) {
    Open();
    return KeyEnd::kTaken;
  }
  if (key == Plain(KeyCode::kBackspace)) {
    OpenWith("");
    return KeyEnd::kTaken;
  }
  if (key == Ctrl('A')) {
    SelectBlock({0, 0, std::max(used_rows - 1, 0), column_count() - 1});
    if (on_select) on_select();
    return KeyEnd::kTaken;
  }
  if (key.IsText() && key.character != 0) return OpenTyping(key);
  return KeyEnd::kNotMine;
}

EditableGrid::KeyEnd EditableGrid::PressInEditor(const Key& key) {
  if (key == Plain(KeyCode::kEscape)) {
    GiveUp();
    return KeyEnd::kTaken;
  }
  const bool up_or_down = key.code == KeyCode::kUp || key.code == KeyCode::kDown ||
                          key.code == KeyCode::kPageUp || key.code == KeyCode::kPageDown;
  const bool leaves =
      !key.alt && !key.ctrl && !key.shift && (up_or_down || (by_typing_ && IsArrow(key.code)));
  if (leaves || IsStep(key)) {
    if (!Accept()) return KeyEnd::kTaken;
    form_.Focus(*this);
    PressMove(key);
    return KeyEnd::kTaken;
  }
  return IsMove(key.code) || EditsText(key) ? KeyEnd::kForEditor : KeyEnd::kNotMine;
}

EditableGrid::KeyEnd EditableGrid::Press(const Key& key) {
  return editing_ ? PressInEditor(key) : PressOnCell(key);
}

}  // namespace kalvo

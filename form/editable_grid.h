#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "form/field.h"
#include "form/grid.h"
#include "form/key.h"

namespace kalvo {

/// How the cells of a column take what is typed.
struct CellTyping {
  KeyFamily family = KeyFamily::kText;
  std::size_t max_characters = 0;  ///< 0: as many as the family allows
  int decimals = -1;               ///< at most so many; -1: any
  bool locked = false;             ///< shown, passed over, never changed
};

/// A rectangle of cells, its edges included.
struct GridBlock {
  int top = 0;
  int left = 0;
  int bottom = 0;
  int right = 0;

  [[nodiscard]] bool Contains(GridPlace place) const {
    return place.row >= top && place.row <= bottom && place.column >= left && place.column <= right;
  }
  [[nodiscard]] int rows() const { return bottom - top + 1; }
  [[nodiscard]] int columns() const { return right - left + 1; }
  bool operator==(const GridBlock&) const = default;
};

/// A table whose cells the user edits as in a spreadsheet: typing replaces a cell, F2 or a double
/// click opens it as it is; keys move the current cell and, with Shift, the far end of the selected
/// block. The editor is a field of the form, over the current cell while it is open.
class EditableGrid : public Grid {
 public:
  EditableGrid(Form& form, std::string_view name);

  Field editor;
  /// The text with which a cell opens; without it the text shown.
  std::function<std::string(GridPlace)> text_of;
  /// The user has edited the cell: it shall hold this text. False: the editor stays open.
  std::function<bool(GridPlace, const std::string&)> on_accept;
  std::function<void()> on_select;  ///< the selection was changed by the user

  bool enter_goes_down = false;  ///< Enter leads down a column, else as Tab to the next cell
  bool opens_selected = false;   ///< F2 and the mouse open a cell with its text selected
  bool opens_by_right_click = false;

  int page_rows = 20;  ///< rows that the front-end has room for
  int used_rows = 0;   ///< rows that keys leap to the end of

  void SetTyping(std::vector<CellTyping> typing) { typing_ = std::move(typing); }
  [[nodiscard]] bool IsLocked(int column) const { return TypingOf(column).locked; }
  [[nodiscard]] bool editing() const { return editing_; }

  /// The selected blocks, the one with the current cell last.
  [[nodiscard]] const std::vector<GridBlock>& selection() const { return selection_; }
  [[nodiscard]] const GridBlock& block() const { return selection_.back(); }
  [[nodiscard]] bool IsSelected(GridPlace place) const;
  /// Grows with every change of current cell or selection.
  [[nodiscard]] int selection_revision() const { return selection_revision_; }

  /// Moves the current cell, or with `extend` the far end of its block. An open editor is accepted
  /// first; one that stays open keeps the cell.
  void GoTo(GridPlace place, bool extend = false);
  /// The form selects a block; the current cell is its first.
  void SelectBlock(const GridBlock& block);
  /// The user has selected by mouse.
  void TakeSelection(std::vector<GridBlock> blocks, GridPlace current);
  /// False: rows of the selection have gone.
  [[nodiscard]] bool SelectionFits() const;
  /// The current cell is where it is kept after rows have come or gone; only it is selected.
  void CollapseSelection();

  /// Opens the current cell: as it is, or with the text in its place. Locked cells stay closed.
  void Open();
  void OpenWith(std::string_view text);
  /// What is in the editor becomes the cell's; true when none is open. False: it stays open.
  bool Accept();
  /// The editor closes, the cell keeps what it had.
  void GiveUp();

  /// What became of a key.
  enum class KeyEnd {
    kTaken,
    kForEditor,  ///< edits the text in the open cell
    kNotMine
  };
  KeyEnd Press(const Key& key);

  /// Percent of the usual size; the user changes it by steps of 10.
  [[nodiscard]] int zoom() const { return zoom_; }
  void ZoomBy(int steps);

 private:
  [[nodiscard]] const CellTyping& TypingOf(int column) const;
  KeyEnd PressInEditor(const Key& key);
  KeyEnd PressOnCell(const Key& key);
  bool PressMove(const Key& key);
  KeyEnd OpenTyping(const Key& key);
  void OpenEditor(bool by_typing);
  void CloseEditor();
  void Step(int direction);
  void StepDown(int direction);
  [[nodiscard]] GridPlace Target(const Key& key) const;
  [[nodiscard]] GridPlace Leap(int down, int right) const;
  [[nodiscard]] bool IsFilled(GridPlace place) const;
  [[nodiscard]] std::string WhyNot(std::string_view text) const;
  void Selected(bool by_user);

  Form& form_;
  std::vector<CellTyping> typing_;
  std::vector<GridBlock> selection_{GridBlock{}};
  GridPlace anchor_;
  bool editing_ = false;
  bool by_typing_ = false;  ///< the open editor was opened by a character
  bool replaced_ = false;   ///< the form has put a text into the open editor
  int selection_revision_ = 0;
  int zoom_ = 100;
};

}  // namespace kalvo

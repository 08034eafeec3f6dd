#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "form/control.h"
#include "form/grid_change.h"
#include "form/key.h"

namespace kalvo {

struct GridColumn {
  std::string header;          ///< its stacked words, a blank or a closing hyphen between them
  int width = 8;               ///< in digits
  bool number = true;          ///< right aligned
  bool closes_family = false;  ///< a heavier line follows
  bool chips = false;          ///< cells are painted as chips in the colour of their tone
  bool open = false;           ///< cells have the ground of what can be changed
  bool bold = false;
  bool centred = false;
  bool names = false;  ///< bold in a selected row
  bool marks = false;  ///< has the marks of its row: of the branch, and of being selected
};

struct GridCell {
  std::string text;
  Tone tone = Tone::kPlain;
  std::optional<double> value{};  ///< what the column is sorted by instead of the text
  std::string tip{};
  bool refused = false;           ///< marked until it changes
  std::optional<double> share{};  ///< 0 to 1, painted as a bar below the text
  bool left = false;              ///< left aligned, whatever its column
  bool operator==(const GridCell&) const = default;
};

/// A place in a grid, from 0.
struct GridPlace {
  int row = 0;
  int column = 0;
  bool operator==(const GridPlace&) const = default;
  bool operator<(const GridPlace& other) const {
    return row != other.row ? row < other.row : column < other.column;
  }
};

/// How the rows are shown; the rows themselves keep their order.
enum class SortOrder { kNone, kRising, kFalling };

/// A table of text cells. Places name rows of the table, however they are shown at the moment.
class Grid : public Control {
 public:
  using Control::Control;

  std::string row_noun;               ///< what a row is, for reading aloud: "Τμήμα"
  std::string mark_name;              ///< what a marked row is
  bool copies_heads = false;          ///< Copy() begins with the heads of its columns
  bool sortable = true;               ///< the user may choose another order
  bool selects_rows = false;          ///< the user selects whole rows, any number of them
  std::function<void()> on_move;      ///< the current cell was moved by the user
  std::function<void()> on_select;    ///< the user has selected other rows
  std::function<void()> on_activate;  ///< double click or Enter on the current cell

  /// Empties the table and gives it these columns and as many rows. The last `blank` of them hold
  /// nothing, cannot be reached and stay where they are; such a table gets no rows inserted.
  void Reset(std::vector<GridColumn> columns, int rows, int blank = 0);

  [[nodiscard]] const std::vector<GridColumn>& columns() const { return columns_; }
  [[nodiscard]] int row_count() const { return static_cast<int>(order_.size()); }
  [[nodiscard]] int column_count() const { return static_cast<int>(columns_.size()); }
  [[nodiscard]] bool IsBlank(int row) const { return row >= row_count() - blank_; }
  [[nodiscard]] const GridCell& At(int row, int column) const;
  void Set(int row, int column, GridCell cell);

  /// Empty rows before row `at`, in a table that is not sorted; the current cell keeps its content.
  void InsertRows(int at, int count);
  void RemoveRows(int at, int count);

  /// The number of the row, where it is not that of its place; in a table whose rows stay.
  void SetNumber(int row, int number);
  [[nodiscard]] int NumberOf(int row) const;

  /// Rows that stand out, such as those of the critical branch.
  void Mark(int row, bool marked);
  [[nodiscard]] bool IsMarked(int row) const { return marked_[static_cast<std::size_t>(row)]; }

  [[nodiscard]] GridPlace current() const { return current_; }
  /// The form moves the current cell; outside the table it is brought to the nearest place.
  void SetCurrent(GridPlace place);
  /// No cell is the current one until the user, or the form, moves to one: its row is -1.
  void ClearCurrent() { current_ = {-1, -1}; }
  /// The user moves it.
  void MoveTo(GridPlace place);

  /// The form selects a row, or no more; one that holds nothing is never selected.
  void Select(int row, bool selected);
  [[nodiscard]] bool IsSelected(int row) const { return selected_[static_cast<std::size_t>(row)]; }
  /// Rows of the table, rising, however they are shown.
  [[nodiscard]] std::vector<int> SelectedRows() const;
  /// The user selects these rows of the table, and no others.
  void TakeSelection(std::span<const int> rows);
  /// A key that selects whole rows: Space the current one, or no more, Ctrl+A all. False: it is not
  /// the grid's own.
  bool PressToSelect(const Key& key);

  /// The user asks for the next order by this column: rising, falling, as the rows stand.
  void CycleSort(int column);
  [[nodiscard]] int sort_column() const { return sort_column_; }
  [[nodiscard]] SortOrder sort_order() const { return sort_order_; }
  /// The rows in the order in which they are shown.
  [[nodiscard]] const std::vector<int>& order() const { return order_; }

  /// The cells as tab-separated text, rows in the order shown, each cell at its column: places
  /// between them are empty. Heads come on one line.
  [[nodiscard]] std::string Copy(std::span<const GridPlace> places) const;

  /// Asks the front-end for the columns' widths as they were at first.
  void RestoreWidths() { ++width_revision_; }
  [[nodiscard]] int width_revision() const { return width_revision_; }
  /// What has changed since this was asked last.
  std::vector<GridChange> TakeChanges() { return changes_.Take(); }

 private:
  [[nodiscard]] bool Before(int a, int b) const;
  void Sort();
  void RenewOrder();

  std::vector<GridColumn> columns_;
  std::vector<GridCell> cells_;
  std::vector<bool> marked_;
  std::vector<int> numbers_;  ///< by row; none: those of their places
  std::vector<bool> selected_;
  std::vector<int> order_;
  int blank_ = 0;
  GridPlace current_;
  int sort_column_ = -1;
  SortOrder sort_order_ = SortOrder::kNone;
  GridChanges changes_;
  int width_revision_ = 0;
};

}  // namespace kalvo

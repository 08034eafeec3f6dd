#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entry/sections/draft_history.h"
#include "form/grid_change.h"

namespace kalvo {

/// The sections of a sitting as texts, sixteen a row, before they become rows of the study. Rows
/// and columns are counted from 0. Each action of the user is a step that can be undone.
class SectionDraft {
 public:
  /// A new sitting; without rows the first one bears the names that it begins with. `edited`: it
  /// goes on with a sheet that was edited already.
  void Begin(SheetImage image, bool edited = false);
  /// The section of the plant, counted from 1, as the sitting begins; 0: none.
  void BeginPlant(int section) { plant_ = section; }
  /// The same now: it follows its row, 0 once that is gone; a number above the rows stays.
  [[nodiscard]] int plant() const { return plant_; }
  /// The rows up to the last one that says something, as a file keeps them.
  [[nodiscard]] SheetImage Image() const;

  [[nodiscard]] SystemKind kind() const { return kind_; }
  /// Rows of the study when the sitting began.
  [[nodiscard]] int base_rows() const { return base_rows_; }
  /// Rows up to the last one that says something; blank ones between count.
  [[nodiscard]] int Count() const;
  /// The row says nothing but what a new one bears by itself.
  [[nodiscard]] bool IsBlank(int row) const;
  /// Any row; one past the last is blank.
  [[nodiscard]] const SheetRow& At(int row) const;
  [[nodiscard]] const std::string& Text(int row, int column) const;

  /// One action: what is changed until it ends is one step of this name. An action inside another
  /// belongs to it.
  class Action {
   public:
    Action(SectionDraft& draft, std::string_view name, GridPlace place);
    Action(const Action&) = delete;
    Action& operator=(const Action&) = delete;
    ~Action();

   private:
    SectionDraft& draft_;
  };

  /// The changes, inside an action. A text in a blank row of an open network gives it its number.
  void Set(int row, int column, std::string_view text);
  /// Blank rows; in an open network own numbers and feeders follow. At most up to `kMostSections`
  /// rows: the caller asks Count().
  void InsertRows(int at, int count);
  /// In an open network feeders follow, and those of a deleted row are emptied.
  void RemoveRows(int at, int count);
  /// A row that comes in as it is, or goes, without a change of any name.
  void InsertRow(int at, SheetRow row);
  void RemoveRow(int at);
  /// Another sheet in place of this one.
  void Replace(std::vector<SheetRow> rows);

  /// The user has changed something, now or in an earlier sitting.
  [[nodiscard]] bool IsEdited() const { return edited_ || history_.CanUndo(); }
  [[nodiscard]] const DraftHistory& history() const { return history_; }
  /// Takes the last step back, or does it again; the current cell as it began. Nothing: there is
  /// none.
  std::optional<GridPlace> Undo();
  std::optional<GridPlace> Redo();

  /// Grows with every change.
  [[nodiscard]] int revision() const { return revision_; }
  /// What has changed since this was asked last.
  std::vector<GridChange> TakeChanges() { return changes_.Take(); }

 private:
  SheetRow& Grown(int row);
  void Apply(const DraftChange& change, bool forward);
  void Apply(const CellChange& change, bool forward);
  void Apply(const RowsChange& change, bool forward);
  void Apply(const NumberShift& change, bool forward);
  void Apply(const WholeChange& change, bool forward);
  void Apply(const PlantChange& change, bool forward);
  void MovePlant(int section);
  void PlantMakesRoom(int at, int count);
  void PlantLosesRows(int at, int count);
  void Do(DraftChange change);
  /// Names that are a number from `first` to `last`.
  void EmptyNames(int first, int last);
  /// The row that a sheet without any begins with.
  [[nodiscard]] SheetRow FirstRow() const;
  /// What a new row bears in the column by itself.
  [[nodiscard]] std::string Preset(int row, int column) const;

  SystemKind kind_ = SystemKind::kClosed;
  int base_rows_ = 0;
  int plant_ = 0;
  bool edited_ = false;
  std::vector<SheetRow> rows_;
  DraftHistory history_;
  DraftStep open_step_;
  int open_actions_ = 0;
  GridChanges changes_;
  int revision_ = 0;
};

}  // namespace kalvo

#pragma once

#include <QTableView>

#include "desktop/bindings/binding.h"
#include "desktop/tables/frozen_columns.h"
#include "desktop/tables/grid_model.h"
#include "desktop/tables/sheet_delegate.h"
#include "desktop/tables/stacked_header.h"

namespace kalvo {

/// A grid and its table. Rows that are selected in one are in the other. A table with the property
/// `frozenColumns` keeps so many in sight.
class GridBinding : public Binding {
 public:
  GridBinding(Grid& grid, QTableView& view);
  /// Begins to hand in what the user does.
  void Join(const Act& act);

  void Paint() override;
  bool Copy() override;
  [[nodiscard]] QWidget* widget() const override { return &view_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  /// What the user does to the table beside choosing an order.
  virtual void HearUser(const Act& act);
  virtual void PaintCurrent();
  void RestoreWidths();
  [[nodiscard]] QTableView& view() const { return view_; }
  [[nodiscard]] const GridModel& model() const { return model_; }
  [[nodiscard]] bool painting() const { return painting_; }
  /// nullptr without frozen columns.
  [[nodiscard]] FrozenColumns* frozen() const { return frozen_; }

 private:
  void DressTable();
  void HearHead();
  void PaintSortMark();
  void HearSelection(const Act& act);
  void PaintSelection();
  void KeepCurrentInSight(const QResizeEvent& resized);
  /// By rows as they are shown: what the view has selected, without those that hold nothing.
  [[nodiscard]] std::vector<bool> SelectionShown() const;
  void DressColumns();
  void ShareWidths();

  Grid& grid_;
  QTableView& view_;
  GridModel model_;
  StackedHeader* head_;
  SheetDelegate cells_delegate_;
  DiameterDelegate chips_delegate_;
  FrozenColumns* frozen_ = nullptr;
  bool by_user_ = false;  ///< the user has set a column's width
  bool sharing_ = false;
  int widths_ = -1;
  int columns_ = -1;
  bool painting_ = false;
};

}  // namespace kalvo

#pragma once

#include <QTableView>

#include "desktop/bindings/binding.h"
#include "desktop/tables/grid_model.h"
#include "desktop/tables/sheet_delegate.h"
#include "desktop/tables/stacked_header.h"

namespace kalvo {

/// A grid and its table.
class GridBinding : public Binding {
 public:
  GridBinding(Grid& grid, QTableView& view, const Act& act);

  void Paint() override;
  bool Copy() override;
  [[nodiscard]] QWidget* widget() const override { return &view_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void DressTable();
  void HearUser(const Act& act);
  void PaintSortMark();
  void PaintCurrent();
  void DressColumns();
  void RestoreWidths();
  void ShareWidths();

  Grid& grid_;
  QTableView& view_;
  GridModel model_;
  StackedHeader* head_;
  SheetDelegate cells_delegate_;
  DiameterDelegate chips_delegate_;
  bool by_user_ = false;  ///< the user has set a column's width
  bool sharing_ = false;
  int shape_ = -1;
  int cells_ = -1;
  int widths_ = -1;
  int columns_ = -1;
  bool painting_ = false;
};

}  // namespace kalvo

#pragma once

#include <QAbstractTableModel>

#include "form/editable_grid.h"

namespace kalvo {

/// A form's grid as a table of Qt, with the roles of cell_roles.h. Rows are those shown, in the
/// grid's order; the grid must outlive the model.
class GridModel : public QAbstractTableModel {
 public:
  explicit GridModel(Grid& grid, QObject* parent)
      : QAbstractTableModel(parent),
        grid_(grid),
        editable_(dynamic_cast<EditableGrid*>(&grid)),
        rows_(grid.row_count()) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

  /// Tells what has become of the grid.
  void Tell(const std::vector<GridChange>& changes);

  [[nodiscard]] GridPlace PlaceOf(const QModelIndex& index) const;
  [[nodiscard]] QModelIndex IndexOf(GridPlace place) const;

 private:
  [[nodiscard]] QString SpokenCell(const GridPlace& place) const;
  void TellCells(int first, int last);
  [[nodiscard]] bool IsLocked(int column) const;
  [[nodiscard]] int LookOf(GridPlace place, const GridCell& cell) const;
  [[nodiscard]] int LookOf(int row) const;

  Grid& grid_;
  const EditableGrid* editable_;  ///< the same, where it can be edited
  int rows_ = 0;                  ///< as the views know them: changes are told one by one
};

}  // namespace kalvo

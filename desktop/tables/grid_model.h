#pragma once

#include <QAbstractTableModel>

#include "form/grid.h"

namespace kalvo {

/// A form's grid as a table of Qt, with the roles of cell_roles.h. Rows are those shown, in the
/// grid's order; the grid must outlive the model.
class GridModel : public QAbstractTableModel {
 public:
  explicit GridModel(Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

  /// The grid has changed: cells only, or its whole shape.
  void CellsChanged();
  void ShapeChanged();

  [[nodiscard]] GridPlace PlaceOf(const QModelIndex& index) const;
  [[nodiscard]] QModelIndex IndexOf(GridPlace place) const;

 private:
  [[nodiscard]] QString SpokenCell(const GridPlace& place) const;

  Grid& grid_;
};

}  // namespace kalvo

#pragma once

#include <QTableView>

namespace kalvo {

/// Keeps the first columns of a table in sight while the rest of it is scrolled sideways. It lies
/// over the table's left edge, shares its model, selection and delegates, and is hidden while they
/// are in sight anyhow. As soon as the current cell is in one of them the table scrolls back, so
/// that cells are only ever edited in the table itself.
class FrozenColumns : public QTableView {
  Q_OBJECT

 public:
  /// The table's model and headers must be set.
  FrozenColumns(QTableView& table, int columns);

  /// The table's font and rows have another size.
  void FollowSize();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TakeOverLook();
  void FollowScrolling();
  void Place();
  void CurrentChanged(const QModelIndex& now, const QModelIndex& before);

  QTableView& table_;
  int columns_;
};

}  // namespace kalvo

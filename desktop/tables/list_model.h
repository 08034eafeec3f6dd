#pragma once

#include <QAbstractListModel>
#include <QIcon>

#include "form/list.h"

namespace kalvo {

/// Lines of a form's list as Qt shows them; the list must outlive the model.
class ListModel : public QAbstractListModel {
 public:
  ListModel(List& list, QIcon icon, QObject* parent)
      : QAbstractListModel(parent), list_(list), icon_(std::move(icon)) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  void LinesChanged() {
    beginResetModel();
    endResetModel();
  }

 private:
  List& list_;
  QIcon icon_;
};

}  // namespace kalvo

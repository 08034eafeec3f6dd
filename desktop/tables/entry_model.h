#pragma once

#include <QAbstractListModel>

#include "form/entry_list.h"

namespace kalvo {

/// Lines of an EntryList as Qt shows them; the list must outlive the model. EntryDelegate paints
/// them.
class EntryModel : public QAbstractListModel {
 public:
  EntryModel(EntryList& list, QObject* parent) : QAbstractListModel(parent), list_(list) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  [[nodiscard]] const EntryList& list() const { return list_; }
  /// Lines, or what is ticked, have changed.
  void Changed();

 private:
  EntryList& list_;
  int shown_ = 0;
};

}  // namespace kalvo

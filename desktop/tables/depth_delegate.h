#pragma once

#include <QStyledItemDelegate>

namespace kalvo {

/// Lines of a list that stand as deep as the model's kDepthRole tells: icon and text move together.
class DepthDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace kalvo

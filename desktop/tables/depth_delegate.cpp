#include "desktop/tables/depth_delegate.h"

#include "desktop/tables/cell_roles.h"

namespace kalvo {
namespace {

constexpr int kIndent = 14;

}  // namespace

void DepthDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const int depth = index.data(kDepthRole).toInt();
  if (option->icon.isNull()) {
    if (depth == 0) return;
    option->features |= QStyleOptionViewItem::HasDecoration;  // an empty one
    option->decorationSize.setWidth(0);
  }
  option->decorationSize.rwidth() += kIndent * depth;
  option->decorationAlignment = Qt::AlignRight | Qt::AlignVCenter;
}

}  // namespace kalvo

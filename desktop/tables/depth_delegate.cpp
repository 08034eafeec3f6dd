#include "desktop/tables/depth_delegate.h"

#include "desktop/tables/cell_roles.h"

namespace kalvo {
namespace {

constexpr int kIndent = 14;

}  // namespace

void DepthDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->decorationSize.rwidth() += kIndent * index.data(kDepthRole).toInt();
  option->decorationAlignment = Qt::AlignRight | Qt::AlignVCenter;
}

}  // namespace kalvo

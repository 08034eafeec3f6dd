#include "desktop/bindings/list_binding.h"

#include "desktop/icons.h"

namespace kalvo {
namespace {

QIcon IconOf(const QListView& view) {
  const QString name = view.property("iconName").toString();
  return name.isEmpty() ? QIcon() : ThemeIcon(name);
}

}  // namespace

ListBinding::ListBinding(List& list, QListView& view, const Act& act)
    : list_(list), view_(view), model_(list, IconOf(view), this) {
  view.setModel(&model_);
  view.setItemDelegate(&delegate_);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.setUniformItemSizes(true);
  connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this, act](const QModelIndex& now) {
            if (!painting_ && now.isValid()) Select(now.row(), act);
          });
  connect(&view, &QListView::doubleClicked, this,
          [this, act](const QModelIndex& index) { act([&] { list_.Activate(index.row()); }); });
}

void ListBinding::Select(int line, const Act& act) {
  act([&] { list_.Select(line); });
  if (list_.selected == line) return;
  // Where the form kept its line the view goes on to mark the one pressed.
  QMetaObject::invokeMethod(
      this, [this] { Paint(); }, Qt::QueuedConnection);
}

void ListBinding::Paint() {
  painting_ = true;
  view_.setVisible(list_.visible);
  view_.setEnabled(list_.enabled);
  if (shown_ != list_.revision()) {
    shown_ = list_.revision();
    model_.LinesChanged();
    view_.doItemsLayout();
  }
  const QModelIndex wanted = model_.index(list_.selected);
  const bool marked = !wanted.isValid() || view_.selectionModel()->isSelected(wanted);
  if (view_.currentIndex().row() != list_.selected || !marked) {
    view_.setCurrentIndex(wanted);
    if (wanted.isValid()) view_.scrollTo(wanted);
  }
  painting_ = false;
}

}  // namespace kalvo

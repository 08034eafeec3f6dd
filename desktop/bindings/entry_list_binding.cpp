#include "desktop/bindings/entry_list_binding.h"

#include "desktop/bindings/control_look.h"

namespace kalvo {
namespace {

constexpr int kEntryHeight = 28;

int RowHeight(const QListView& view) {
  const int wanted = view.property("rowHeight").toInt();
  return wanted > 0 ? wanted : kEntryHeight;
}

}  // namespace

EntryListBinding::EntryListBinding(EntryList& list, QListView& view, const Act& act)
    : list_(list), view_(view), model_(list, this), delegate_(RowHeight(view), this) {
  view.setModel(&model_);
  view.setItemDelegate(&delegate_);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.setSelectionMode(QAbstractItemView::NoSelection);
  view.setUniformItemSizes(true);
  connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this, act](const QModelIndex& now) {
            if (!painting_ && now.isValid()) act([&] { list_.MoveTo(now.row()); });
          });
  connect(&view, &QListView::clicked, this,
          [this, act](const QModelIndex& line) { act([&] { list_.Tick(line.row()); }); });
}

void EntryListBinding::FitHeight() {
  const int most = view_.property("mostRows").toInt();
  if (most <= 0) return;
  const int rows = qBound(1, list_.count(), most);
  view_.setFixedHeight(rows * qMax(RowHeight(view_), view_.fontMetrics().height()) +
                       2 * view_.frameWidth());
}

void EntryListBinding::Paint() {
  painting_ = true;
  PaintPresence(view_, list_);
  if (shown_ != list_.revision()) {
    shown_ = list_.revision();
    model_.Changed();
    FitHeight();
    const QModelIndex wanted = model_.index(list_.current());
    if (view_.currentIndex() != wanted) {
      view_.selectionModel()->setCurrentIndex(wanted, QItemSelectionModel::NoUpdate);
    }
    if (wanted.isValid()) view_.scrollTo(wanted);
  }
  painting_ = false;
}

}  // namespace kalvo

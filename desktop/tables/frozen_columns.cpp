#include "desktop/tables/frozen_columns.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>

#include "desktop/tables/sheet_delegate.h"
#include "desktop/tables/stacked_header.h"

namespace kalvo {
namespace {

constexpr int kEdge = 1;  // the style sheet's line at the right

}  // namespace

FrozenColumns::FrozenColumns(QTableView& table, int columns)
    : QTableView(&table), table_(table), columns_(columns) {
  setModel(table_.model());
  setSelectionModel(table_.selectionModel());
  TakeOverLook();
  FollowScrolling();
  table_.installEventFilter(this);
  table_.viewport()->installEventFilter(this);
  connect(table_.model(), &QAbstractItemModel::modelReset, this, &FrozenColumns::Place);
  connect(table_.selectionModel(), &QItemSelectionModel::currentChanged, this,
          &FrozenColumns::CurrentChanged);
  connect(table_.horizontalHeader(), &QHeaderView::sectionResized, this, &FrozenColumns::Place);
  connect(table_.horizontalHeader(), &QHeaderView::geometriesChanged, this, &FrozenColumns::Place);
  hide();
}

void FrozenColumns::TakeOverLook() {
  setFocusProxy(&table_);
  setProperty("role", "frozen");
  setHorizontalHeader(new StackedHeader(this));
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(table_.verticalHeader()->defaultSectionSize());
  setAlternatingRowColors(table_.alternatingRowColors());
  setSelectionBehavior(table_.selectionBehavior());
  setSelectionMode(table_.selectionMode());
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(table_.verticalScrollMode());
}

void FrozenColumns::FollowScrolling() {
  connect(table_.verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(),
          &QScrollBar::setValue);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, table_.verticalScrollBar(),
          &QScrollBar::setValue);
  connect(table_.horizontalScrollBar(), &QScrollBar::valueChanged, this, &FrozenColumns::Place);
}

void FrozenColumns::Place() {
  // Headers also report when the table goes away; when it is shown again this is called anew.
  if (!table_.isVisible()) return;
  const bool scrolled = table_.horizontalScrollBar()->value() > 0;
  setVisible(scrolled);
  if (!scrolled) return;
  int width = kEdge;
  for (int column = 0; column < model()->columnCount(); ++column) {
    setColumnHidden(column, column >= columns_);
    if (column >= columns_) continue;
    setItemDelegateForColumn(column, table_.itemDelegateForIndex(model()->index(0, column)));
    setColumnWidth(column, table_.columnWidth(column));
    width += table_.columnWidth(column);
  }
  const QRect cells = table_.viewport()->geometry();
  const int head = table_.horizontalHeader()->height();
  horizontalHeader()->setFixedHeight(head);
  setGeometry(cells.left(), cells.top() - head, width, cells.height() + head);
  verticalScrollBar()->setValue(table_.verticalScrollBar()->value());
  raise();
}

void FrozenColumns::FollowSize() {
  setFont(table_.font());
  verticalHeader()->setDefaultSectionSize(table_.verticalHeader()->defaultSectionSize());
  Place();
}

void FrozenColumns::CurrentChanged(const QModelIndex& now, const QModelIndex& before) {
  RepaintTintedRows(*this, now, before);
  if (now.isValid() && now.column() < columns_) table_.horizontalScrollBar()->setValue(0);
}

bool FrozenColumns::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Show) Place();
  return QTableView::eventFilter(watched, event);
}

}  // namespace kalvo

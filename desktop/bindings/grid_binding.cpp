#include "desktop/bindings/grid_binding.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QResizeEvent>
#include <numeric>

#include "desktop/qt_text.h"
#include "desktop/tables/row_header.h"

namespace kalvo {
namespace {

// Space in a cell around its text.
constexpr int kCellMargin = 18;

}  // namespace

GridBinding::GridBinding(Grid& grid, QTableView& view)
    : grid_(grid), view_(view), model_(grid, this), head_(new StackedHeader(&view)) {
  DressTable();
}

void GridBinding::Join(const Act& act) {
  HearHead();
  HearUser(act);
  if (grid_.selects_rows) HearSelection(act);
}

void GridBinding::DressTable() {
  head_->setStretchLastSection(view_.horizontalHeader()->stretchLastSection());
  view_.setHorizontalHeader(head_);
  const QHeaderView* designed = view_.verticalHeader();
  const bool unnumbered =
      designed->testAttribute(Qt::WA_WState_ExplicitShowHide) && designed->isHidden();
  view_.setVerticalHeader(new RowHeader(&view_));
  if (unnumbered) view_.verticalHeader()->hide();
  cells_delegate_.SetTintsCurrentRow(view_.property("tintsCurrentRow").toBool());
  view_.setItemDelegate(&cells_delegate_);
  view_.setModel(&model_);
  if (grid_.selects_rows) {
    view_.setSelectionBehavior(QAbstractItemView::SelectRows);
    view_.setSelectionMode(QAbstractItemView::ExtendedSelection);
  }
  connect(view_.selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& now, const QModelIndex& before) {
            RepaintTintedRows(view_, now, before);
          });
  view_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_.setTabKeyNavigation(false);  // Tab leads on to the commands
  if (const int columns = view_.property("frozenColumns").toInt(); columns > 0) {
    frozen_ = new FrozenColumns(view_, columns);
  }
}

void GridBinding::HearUser(const Act& act) {
  connect(view_.selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this, act](const QModelIndex& now) {
            if (painting_ || !now.isValid()) return;
            act([&] { grid_.MoveTo(model_.PlaceOf(now)); });
          });
  connect(&view_, &QTableView::doubleClicked, this, [this, act](const QModelIndex& meant) {
    // The form may have kept the current cell off the row that was clicked.
    const bool reached = model_.PlaceOf(meant).row == grid_.current().row;
    if (grid_.on_activate && reached) act(grid_.on_activate);
  });
  // A click on the head sorts; it neither selects a column nor moves the current cell.
  disconnect(head_, &QHeaderView::sectionPressed, &view_, nullptr);
  disconnect(head_, &QHeaderView::sectionEntered, &view_, nullptr);
  connect(head_, &QHeaderView::sectionClicked, this,
          [this, act](int column) { act([&] { grid_.CycleSort(column); }); });
}

void GridBinding::HearSelection(const Act& act) {
  connect(view_.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, act] {
    if (painting_) return;
    std::vector<int> rows;
    const std::vector<bool> shown = SelectionShown();
    for (std::size_t at = 0; at < shown.size(); ++at) {
      if (shown[at]) rows.push_back(grid_.order()[at]);
    }
    act([&] {
      // A key moves to the row that it selects; that is told only afterwards.
      const QModelIndex now = view_.currentIndex();
      if (now.isValid()) grid_.MoveTo(model_.PlaceOf(now));
      grid_.TakeSelection(rows);
    });
  });
}

void GridBinding::HearHead() {
  head_->setSectionsClickable(true);
  view_.viewport()->installEventFilter(this);
  if (view_.property("fillsWidth").toBool()) {
    connect(head_, &QHeaderView::sectionResized, this, [this] { by_user_ = !sharing_; });
  }
}

void GridBinding::Paint() {
  painting_ = true;
  view_.setVisible(grid_.visible);
  view_.setEnabled(grid_.enabled);
  model_.Tell(grid_.TakeChanges());
  PaintSortMark();
  if (widths_ != grid_.width_revision() || columns_ != grid_.column_count()) RestoreWidths();
  PaintCurrent();
  if (grid_.selects_rows) PaintSelection();
  painting_ = false;
}

bool GridBinding::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && watched == view_.viewport()) {
    const bool fills = view_.property("fillsWidth").toBool();
    if (fills && !by_user_) ShareWidths();
    KeepCurrentInSight(static_cast<QResizeEvent&>(*event));
  }
  return Binding::eventFilter(watched, event);
}

// A line that appears under the table must not cover the row in hand.
void GridBinding::KeepCurrentInSight(const QResizeEvent& resized) {
  const QRect at = view_.visualRect(view_.currentIndex());
  const bool was = at.isValid() && at.top() >= 0 && at.bottom() <= resized.oldSize().height();
  if (was && at.bottom() > resized.size().height()) view_.scrollTo(view_.currentIndex());
}

bool GridBinding::Copy() {
  std::vector<GridPlace> places;
  for (const QModelIndex& index : view_.selectionModel()->selectedIndexes()) {
    places.push_back(model_.PlaceOf(index));
  }
  QGuiApplication::clipboard()->setText(ToQt(grid_.Copy(places)));
  return true;
}

void GridBinding::PaintSortMark() {
  head_->setSortIndicatorShown(grid_.sort_order() != SortOrder::kNone);
  head_->setSortIndicator(grid_.sort_column(), grid_.sort_order() == SortOrder::kFalling
                                                   ? Qt::DescendingOrder
                                                   : Qt::AscendingOrder);
}

std::vector<bool> GridBinding::SelectionShown() const {
  std::vector<bool> shown(grid_.order().size(), false);
  for (const QItemSelectionRange& range : view_.selectionModel()->selection()) {
    for (int at = range.top(); at <= range.bottom(); ++at) {
      shown[static_cast<std::size_t>(at)] = !grid_.IsBlank(at);
    }
  }
  return shown;
}

// At once, in as few ranges as there are: each call would paint.
void GridBinding::PaintSelection() {
  std::vector<bool> wanted;
  for (const int row : grid_.order()) wanted.push_back(grid_.IsSelected(row));
  if (wanted == SelectionShown()) return;
  QItemSelection ranges;
  const auto count = static_cast<int>(wanted.size());
  const int last_column = grid_.column_count() - 1;
  for (int first = 0; first < count; ++first) {
    if (!wanted[static_cast<std::size_t>(first)]) continue;
    int last = first;
    while (last + 1 < count && wanted[static_cast<std::size_t>(last) + 1]) ++last;
    ranges.append(QItemSelectionRange(model_.index(first, 0), model_.index(last, last_column)));
    first = last;
  }
  view_.selectionModel()->select(ranges, QItemSelectionModel::ClearAndSelect);
}

// Where rows are selected the current cell selects none.
void GridBinding::PaintCurrent() {
  const QModelIndex wanted = model_.IndexOf(grid_.current());
  if (grid_.selects_rows && view_.currentIndex() != wanted) {
    view_.selectionModel()->setCurrentIndex(wanted, QItemSelectionModel::NoUpdate);
    if (view_.isVisible()) view_.scrollTo(wanted);
    return;
  }
  if (!wanted.isValid() && view_.currentIndex().isValid()) {
    view_.setCurrentIndex({});
    view_.clearSelection();
  }
  if (wanted.isValid() && view_.currentIndex() != wanted) {
    view_.setCurrentIndex(wanted);
    if (view_.isVisible()) view_.scrollTo(wanted);  // else it does so itself once it has its size
  }
}

void GridBinding::DressColumns() {
  QList<int> family_ends;
  for (int column = 0; column < columns_; ++column) {
    const GridColumn& known = grid_.columns()[static_cast<std::size_t>(column)];
    if (known.closes_family) family_ends.push_back(column);
    view_.setItemDelegateForColumn(column, known.chips ? &chips_delegate_ : nullptr);
  }
  head_->SetFamilyEnds(family_ends);
  cells_delegate_.SetFamilyEnds(family_ends);
  chips_delegate_.SetFamilyEnds(family_ends);
}

void GridBinding::RestoreWidths() {
  widths_ = grid_.width_revision();
  columns_ = grid_.column_count();
  DressColumns();
  by_user_ = false;
  ShareWidths();
}

// The columns' own widths; where the table is to fill its place, each takes its part of what is
// left, until the user sets one.
void GridBinding::ShareWidths() {
  const int digit = view_.fontMetrics().horizontalAdvance(QLatin1Char('0'));
  std::vector<int> widths;
  for (const GridColumn& column : grid_.columns()) {
    widths.push_back(column.width * digit + kCellMargin);
  }
  const int whole = std::accumulate(widths.begin(), widths.end(), 0);
  const bool fills = view_.property("fillsWidth").toBool();
  const int room = fills ? std::max(view_.viewport()->width(), whole) : whole;
  sharing_ = true;
  for (std::size_t column = 0; column < widths.size(); ++column) {
    view_.setColumnWidth(static_cast<int>(column), widths[column] * room / whole);
  }
  sharing_ = false;
}

}  // namespace kalvo

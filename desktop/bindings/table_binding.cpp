#include <QClipboard>
#include <QEvent>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QHeaderView>
#include <QListView>
#include <QTableView>
#include <numeric>

#include "desktop/bindings/binding.h"
#include "desktop/icons.h"
#include "desktop/tables/depth_delegate.h"
#include "desktop/tables/grid_model.h"
#include "desktop/tables/list_model.h"
#include "desktop/tables/sheet_delegate.h"
#include "desktop/tables/stacked_header.h"

namespace kalvo {
namespace {

// Space in a cell beside its text.
constexpr int kCellMargin = 18;

class ListBinding : public Binding {
 public:
  ListBinding(List& list, QListView& view, const Act& act)
      : list_(list), view_(view), model_(list, IconOf(view), this) {
    view.setModel(&model_);
    view.setItemDelegate(&delegate_);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setUniformItemSizes(true);
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this, act](const QModelIndex& now) {
              if (painting_ || !now.isValid()) return;
              act([&] { list_.Select(now.row()); });
              // Where the form kept its line the view goes on to mark the one pressed.
              if (list_.selected != now.row()) {
                QMetaObject::invokeMethod(
                    this, [this] { Paint(); }, Qt::QueuedConnection);
              }
            });
    connect(&view, &QListView::doubleClicked, this,
            [this, act](const QModelIndex& index) { act([&] { list_.Activate(index.row()); }); });
  }

  void Paint() override {
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
  [[nodiscard]] QWidget* widget() const override { return &view_; }

 private:
  static QIcon IconOf(const QListView& view) {
    const QString name = view.property("iconName").toString();
    return name.isEmpty() ? QIcon() : ThemeIcon(name);
  }

  List& list_;
  QListView& view_;
  ListModel model_;
  DepthDelegate delegate_;
  int shown_ = -1;
  bool painting_ = false;
};

class GridBinding : public Binding {
 public:
  GridBinding(Grid& grid, QTableView& view, const Act& act)
      : grid_(grid), view_(view), model_(grid, this) {
    head_ = new StackedHeader(&view);
    head_->setStretchLastSection(view.horizontalHeader()->stretchLastSection());
    view.setHorizontalHeader(head_);
    view.setVerticalHeader(new RowHeader(&view));
    view.setItemDelegate(&cells_delegate_);
    view.setModel(&model_);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setTabKeyNavigation(false);  // Tab leads on to the commands
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this, act](const QModelIndex& now) {
              if (painting_ || !now.isValid()) return;
              act([&] { grid_.MoveTo(model_.PlaceOf(now)); });
            });
    connect(&view, &QTableView::doubleClicked, this, [this, act](const QModelIndex&) {
      if (grid_.on_activate) act(grid_.on_activate);
    });
    head_->setSectionsClickable(true);
    if (view.property("fillsWidth").toBool()) {
      view.viewport()->installEventFilter(this);
      connect(head_, &QHeaderView::sectionResized, this, [this] { by_user_ = !sharing_; });
    }
    connect(head_, &QHeaderView::sectionClicked, this,
            [this, act](int column) { act([&] { grid_.CycleSort(column); }); });
  }

  void Paint() override {
    painting_ = true;
    view_.setVisible(grid_.visible);
    view_.setEnabled(grid_.enabled);
    if (shape_ != grid_.shape_revision()) {
      shape_ = grid_.shape_revision();
      model_.ShapeChanged();
      PaintSortMark();
    } else if (cells_ != grid_.revision()) {
      model_.CellsChanged();
    }
    cells_ = grid_.revision();
    if (widths_ != grid_.width_revision() || columns_ != grid_.column_count()) RestoreWidths();
    PaintCurrent();
    painting_ = false;
  }
  [[nodiscard]] QWidget* widget() const override { return &view_; }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize && !by_user_) ShareWidths();
    return Binding::eventFilter(watched, event);
  }

  bool Copy() override {
    std::vector<GridPlace> places;
    for (const QModelIndex& index : view_.selectionModel()->selectedIndexes()) {
      places.push_back(model_.PlaceOf(index));
    }
    QGuiApplication::clipboard()->setText(ToQt(grid_.Copy(places)));
    return true;
  }

 private:
  void PaintSortMark() {
    head_->setSortIndicatorShown(grid_.sort_order() != SortOrder::kNone);
    head_->setSortIndicator(grid_.sort_column(), grid_.sort_order() == SortOrder::kFalling
                                                     ? Qt::DescendingOrder
                                                     : Qt::AscendingOrder);
  }

  void PaintCurrent() {
    const QModelIndex wanted = model_.IndexOf(grid_.current());
    if (wanted.isValid() && view_.currentIndex() != wanted) {
      view_.setCurrentIndex(wanted);
      view_.scrollTo(wanted);
    }
  }

  void DressColumns() {
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

  void RestoreWidths() {
    widths_ = grid_.width_revision();
    columns_ = grid_.column_count();
    DressColumns();
    by_user_ = false;
    ShareWidths();
  }

  // The columns' own widths; where the table is to fill its place, each takes its part of what is
  // left, until the user sets one.
  void ShareWidths() {
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

  Grid& grid_;
  QTableView& view_;
  GridModel model_;
  StackedHeader* head_ = nullptr;
  SheetDelegate cells_delegate_;
  DiameterDelegate chips_delegate_;
  bool by_user_ = false;  ///< the user has set a column's width
  bool sharing_ = false;
  int shape_ = -1;
  int cells_ = -1;
  int widths_ = -1;
  int columns_ = -1;
  bool painting_ = false;
};

}  // namespace

std::unique_ptr<Binding> MakeTableBinding(Control& part, QWidget& widget, const Act& act) {
  auto* list = dynamic_cast<List*>(&part);
  auto* list_view = qobject_cast<QListView*>(&widget);
  if (list != nullptr && list_view != nullptr) {
    return std::make_unique<ListBinding>(*list, *list_view, act);
  }
  auto* grid = dynamic_cast<Grid*>(&part);
  auto* table = qobject_cast<QTableView*>(&widget);
  if (grid != nullptr && table != nullptr) {
    return std::make_unique<GridBinding>(*grid, *table, act);
  }
  return nullptr;
}

}  // namespace kalvo

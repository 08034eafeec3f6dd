#include "desktop/bindings/editable_grid_binding.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QWheelEvent>

#include "desktop/qt_text.h"

namespace kalvo {

EditableGridBinding::EditableGridBinding(EditableGrid& grid, QTableView& view)
    : GridBinding(grid, view),
      grid_(grid),
      editor_(*new QLineEdit(view.viewport())),
      points_(view.font().pointSizeF()),
      row_height_(view.verticalHeader()->defaultSectionSize()) {
  editor_.setObjectName(ToQt(grid.editor.name()));
  editor_.setProperty("role", "cell");
  editor_.hide();
  view.viewport()->installEventFilter(this);
  if (frozen() != nullptr) frozen()->viewport()->installEventFilter(this);
}

void EditableGridBinding::HearUser(const Act& act) {
  act_ = act;
  const auto* selection = view().selectionModel();
  connect(selection, &QItemSelectionModel::selectionChanged, this, [this] { SelectedByMouse(); });
  connect(selection, &QItemSelectionModel::currentChanged, this, [this] { SelectedByMouse(); });
  const auto open = [this] {
    if (heard_) TakeSelection();  // the cell that was meant
    act_([this] { grid_.Open(); });
  };
  connect(&view(), &QTableView::doubleClicked, this, open);
  if (frozen() != nullptr) connect(frozen(), &QTableView::doubleClicked, this, open);
  if (grid_.opens_by_right_click) {
    view().setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&view(), &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
      const QModelIndex meant = view().indexAt(at);
      if (!meant.isValid()) return;
      act_([&] {
        grid_.GoTo(model().PlaceOf(meant));
        grid_.Open();
      });
    });
  }
  for (const QScrollBar* bar : {view().horizontalScrollBar(), view().verticalScrollBar()}) {
    connect(bar, &QScrollBar::valueChanged, this, [this] { PlaceEditor(); });
  }
}

// Selection and current cell change one after the other: both are handed in once they are settled.
void EditableGridBinding::SelectedByMouse() {
  if (painting() || heard_) return;
  heard_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (heard_) TakeSelection();
      },
      Qt::QueuedConnection);
}

void EditableGridBinding::TakeSelection() {
  heard_ = false;
  const QModelIndex now = view().currentIndex();
  if (!now.isValid()) return;
  std::vector<GridBlock> blocks;
  for (const QItemSelectionRange& range : view().selectionModel()->selection()) {
    blocks.push_back({range.top(), range.left(), range.bottom(), range.right()});
  }
  act_([&] {
    if (grid_.Accept()) grid_.TakeSelection(std::move(blocks), model().PlaceOf(now));
  });
}

void EditableGridBinding::PaintCurrent() {
  if (selection_ == grid_.selection_revision() &&
      view().currentIndex() == model().IndexOf(grid_.current())) {
    return;
  }
  selection_ = grid_.selection_revision();
  QItemSelection selection;
  for (const GridBlock& block : grid_.selection()) {
    selection.select(model().IndexOf({block.top, block.left}),
                     model().IndexOf({block.bottom, block.right}));
  }
  const QModelIndex now = model().IndexOf(grid_.current());
  view().selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  view().selectionModel()->setCurrentIndex(now, QItemSelectionModel::NoUpdate);
  if (now.isValid()) view().scrollTo(now);
}

void EditableGridBinding::PaintZoom() {
  if (zoom_ == grid_.zoom()) return;
  zoom_ = grid_.zoom();
  QFont font = view().font();
  font.setPointSizeF(points_ * zoom_ / 100);
  view().setFont(font);
  view().verticalHeader()->setDefaultSectionSize(row_height_ * zoom_ / 100);
  RestoreWidths();
  if (frozen() != nullptr) frozen()->FollowSize();
}

void EditableGridBinding::PlaceEditor() {
  if (!grid_.editing()) return;
  editor_.setGeometry(view().visualRect(model().IndexOf(grid_.current())));
  const bool number = grid_.columns()[static_cast<std::size_t>(grid_.current().column)].number;
  editor_.setAlignment(number ? Qt::AlignRight : Qt::AlignLeft);
}

void EditableGridBinding::Paint() {
  GridBinding::Paint();
  PaintZoom();
  const int row = view().verticalHeader()->defaultSectionSize();
  grid_.page_rows = std::max(view().viewport()->height() / std::max(row, 1) - 1, 1);
  PlaceEditor();
}

bool EditableGridBinding::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel) {
    const auto& wheel = static_cast<const QWheelEvent&>(*event);
    const int steps = wheel.angleDelta().y() > 0 ? 1 : -1;
    if (wheel.modifiers().testFlag(Qt::ControlModifier)) {
      act_([this, steps] { grid_.ZoomBy(steps); });
      return true;
    }
  }
  if (event->type() == QEvent::Resize) PlaceEditor();
  return GridBinding::eventFilter(watched, event);
}

}  // namespace kalvo

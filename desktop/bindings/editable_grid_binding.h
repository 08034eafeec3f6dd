#pragma once

#include <QLineEdit>

#include "desktop/bindings/grid_binding.h"
#include "form/editable_grid.h"

namespace kalvo {

/// A grid that can be edited and its table. The form moves, selects and edits; the table shows that
/// and hands in what the mouse does. The editor is a line in the table that the editor's own part
/// is bound to.
class EditableGridBinding : public GridBinding {
 public:
  EditableGridBinding(EditableGrid& grid, QTableView& view);

  void Paint() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void HearUser(const Act& act) override;
  void PaintCurrent() override;

 private:
  void SelectedByMouse();
  void TakeSelection();
  void PlaceEditor();
  void PaintZoom();

  EditableGrid& grid_;
  QLineEdit& editor_;
  Act act_;
  double points_ = 0;  ///< of the table's font at first
  int row_height_ = 0;
  int zoom_ = 100;
  int selection_ = -1;
  bool heard_ = false;  ///< a selection by mouse waits to be handed in
};

}  // namespace kalvo

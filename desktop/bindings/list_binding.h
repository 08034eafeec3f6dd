#pragma once

#include <QListView>

#include "desktop/bindings/binding.h"
#include "desktop/tables/depth_delegate.h"
#include "desktop/tables/list_model.h"

namespace kalvo {

/// A list of lines and its view.
class ListBinding : public Binding {
 public:
  ListBinding(List& list, QListView& view, const Act& act);

  void Paint() override;
  [[nodiscard]] QWidget* widget() const override { return &view_; }

 private:
  void Select(int line, const Act& act);

  List& list_;
  QListView& view_;
  ListModel model_;
  DepthDelegate delegate_;
  int shown_ = -1;
  bool painting_ = false;
};

}  // namespace kalvo

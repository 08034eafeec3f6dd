#pragma once

#include <QListView>

#include "desktop/bindings/binding.h"
#include "desktop/tables/entry_delegate.h"
#include "desktop/tables/entry_model.h"

namespace kalvo {

/// An EntryList and its view. The view's property `rowHeight` is the height of a line; with
/// `mostRows` it is as high as its lines, up to that many.
class EntryListBinding : public Binding {
 public:
  EntryListBinding(EntryList& list, QListView& view, const Act& act);

  void Paint() override;
  [[nodiscard]] QWidget* widget() const override { return &view_; }

 private:
  void FitHeight();

  EntryList& list_;
  QListView& view_;
  EntryModel model_;
  EntryDelegate delegate_;
  int shown_ = -1;
  bool painting_ = false;
};

}  // namespace kalvo

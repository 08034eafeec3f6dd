#pragma once

#include <optional>

#include "tests/results/results_desk.h"

namespace kalvo {

/// Results with a view.
template <typename View>
struct ViewDesk : ResultsDesk {
  explicit ViewDesk(SystemKind kind = SystemKind::kClosed) : ResultsDesk(kind) {}

  void Load() {
    view.emplace(desk);
    view->Load();
    view->Activate();
    test.study.unsaved_changes = false;
    TakeLog();
  }

  std::optional<View> view;
};

}  // namespace kalvo

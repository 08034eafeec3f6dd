#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "form/control.h"

namespace kalvo {

/// Lines of text of which one can be selected. `depth` of a line indents it, as in a tree.
class List : public Control {
 public:
  using Control::Control;

  int selected = -1;                  ///< position from 0; -1: none
  std::function<void()> on_select;    ///< the user has selected a line
  std::function<void()> on_activate;  ///< double click or Enter on the selected line

  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }
  [[nodiscard]] const std::vector<int>& depths() const { return depths_; }
  [[nodiscard]] int count() const { return static_cast<int>(lines_.size()); }
  [[nodiscard]] bool HasSelection() const { return selected >= 0 && selected < count(); }
  /// Grows whenever the lines were set.
  [[nodiscard]] int revision() const { return revision_; }

  void SetLines(std::vector<std::string> lines, std::vector<int> depths = {}) {
    lines_ = std::move(lines);
    depths_ = std::move(depths);
    ++revision_;
    if (selected >= count()) selected = -1;
  }

  /// The user selects a line.
  void Select(int position) {
    if (position == selected || position < -1 || position >= count()) return;
    selected = position;
    if (on_select) on_select();
  }

  /// The user selects a line and means it: double click, or Enter.
  void Activate(int position) {
    Select(position);
    if (HasSelection() && on_activate) on_activate();
  }

 private:
  std::vector<std::string> lines_;
  std::vector<int> depths_;
  int revision_ = 0;
};

}  // namespace kalvo

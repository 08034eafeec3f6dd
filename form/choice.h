#pragma once

#include <functional>
#include <string>
#include <vector>

#include "form/control.h"
#include "form/key.h"

namespace kalvo {

/// One of several texts, in a list that drops down.
class Choice : public Control {
 public:
  using Control::Control;

  std::vector<std::string> entries;
  std::vector<std::string> icons;   ///< of the entries; none: they have none
  int selected = -1;                ///< position from 0; -1: none
  std::function<void()> on_select;  ///< the user has chosen; `selected` holds what

  bool takes_same = false;  ///< choosing the entry that is selected already counts too

  /// The user chooses an entry.
  void Select(int position) {
    if ((position == selected && !takes_same) || position < -1 ||
        position >= static_cast<int>(entries.size())) {
      return;
    }
    selected = position;
    if (on_select) on_select();
  }
  /// A key while its list is open: arrows go through it, Enter takes. A list that took at each
  /// arrow could not be gone through. False: the key is not its own.
  bool Press(const Key& key);
};

/// A box to tick, or one of several options that exclude each other (the form sees to that).
class Toggle : public Control {
 public:
  Toggle(Form& form, std::string_view name, std::string_view caption_text)
      : Control(form, name), caption(caption_text) {}

  std::string caption;
  bool on = false;
  std::function<void()> on_toggle;  ///< the user has switched it; `on` holds the new state
  std::function<void()> on_double_click;

  /// The user switches it.
  void Set(bool value) {
    if (value == on) return;
    on = value;
    if (on_toggle) on_toggle();
  }
};

}  // namespace kalvo

#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "form/control.h"
#include "form/key.h"

namespace kalvo {

/// Something the user can do: a button, an entry of a menu, a key, or all of them. A command that
/// cannot run says why when it is tried; it is not greyed.
class Command : public Control {
 public:
  Command(Form& form, std::string_view name, std::string_view caption_text,
          std::function<void()> what, std::vector<Key> pressed_by = {})
      : Control(form, name),
        caption(caption_text),
        keys(std::move(pressed_by)),
        action(std::move(what)) {}

  std::string caption;
  std::vector<Key> keys;  ///< the first is shown beside the caption
  std::string hint;       ///< shown there instead of a key
  std::string icon;       ///< instead of the one that the window has for it
  std::string spoken;     ///< read aloud instead of the caption
  std::string described;  ///< read aloud after it: what it would do now
  std::function<void()> action;
  bool leaves_freely = false;  ///< runs whatever the field with the focus thinks of being left
  bool sounds_itself = false;  ///< its action sounds, once its tests have passed
  Tone tone = Tone::kPlain;

  /// What is shown beside the caption.
  [[nodiscard]] std::string Hint() const {
    return hint.empty() && !keys.empty() ? KeyText(keys.front()) : hint;
  }
};

/// One line of a menu: a command under the menu's own caption, or the command's when that is empty;
/// none is a separating line.
struct MenuEntry {
  std::string name;
  std::string caption;
  Command* command = nullptr;
};

/// A menu of the form's bar, or its pop-up.
struct Menu {
  std::string title;
  std::vector<MenuEntry> entries;
};

}  // namespace kalvo

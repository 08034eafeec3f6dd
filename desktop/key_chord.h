#pragma once

#include <QKeyEvent>
#include <optional>

#include "form/key.h"

namespace kalvo {

/// Alt+Shift by themselves: a key of the form only once both are let go and no other key came
/// between, since the same two may change the keyboard's language or begin another shortcut.
class KeyChord {
 public:
  /// Looks at a key that is pressed. True: it says nothing to the form yet.
  bool HoldsBack(const QKeyEvent& press);
  /// The key that this release makes whole, if it does.
  std::optional<Key> Released(const QKeyEvent& release);
  /// The keyboard went elsewhere: what was pressed does not count.
  void Forget() { both_pressed_ = false; }

 private:
  bool both_pressed_ = false;
};

}  // namespace kalvo

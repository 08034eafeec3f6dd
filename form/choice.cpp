#include "form/choice.h"

#include <algorithm>

namespace kalvo {

bool Choice::Press(const Key& key) {
  const int last = static_cast<int>(entries.size()) - 1;
  switch (key.code) {
    case KeyCode::kUp:
      selected = std::max(selected - 1, 0);
      return true;
    case KeyCode::kDown:
      selected = std::min(selected + 1, last);
      return true;
    case KeyCode::kHome:
      selected = 0;
      return true;
    case KeyCode::kEnd:
      selected = last;
      return true;
    case KeyCode::kEnter:
      if (on_select) on_select();
      return true;
    default:
      return key.IsText() || EditsText(key);
  }
}

}  // namespace kalvo

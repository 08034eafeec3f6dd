#include "desktop/key_event.h"

#include <algorithm>
#include <array>

namespace kalvo {
namespace {

struct NamedKey {
  int qt;
  KeyCode code;
};

constexpr std::array kNamedKeys = {NamedKey{Qt::Key_Return, KeyCode::kEnter},
                                   NamedKey{Qt::Key_Enter, KeyCode::kEnter},
                                   NamedKey{Qt::Key_Escape, KeyCode::kEscape},
                                   NamedKey{Qt::Key_Delete, KeyCode::kDelete},
                                   NamedKey{Qt::Key_Backspace, KeyCode::kBackspace},
                                   NamedKey{Qt::Key_Insert, KeyCode::kInsert},
                                   NamedKey{Qt::Key_Home, KeyCode::kHome},
                                   NamedKey{Qt::Key_End, KeyCode::kEnd},
                                   NamedKey{Qt::Key_PageUp, KeyCode::kPageUp},
                                   NamedKey{Qt::Key_PageDown, KeyCode::kPageDown},
                                   NamedKey{Qt::Key_Left, KeyCode::kLeft},
                                   NamedKey{Qt::Key_Right, KeyCode::kRight},
                                   NamedKey{Qt::Key_Up, KeyCode::kUp},
                                   NamedKey{Qt::Key_Down, KeyCode::kDown},
                                   NamedKey{Qt::Key_Tab, KeyCode::kTab}};

// A modifier key reports itself; with the two others held it is Ctrl+Alt+Shift.
bool IsModifier(int key) {
  return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt ||
         key == Qt::Key_Meta;
}

char32_t CharacterOf(const QKeyEvent& event, bool as_command) {
  if (!as_command) {
    const auto text = event.text().toUcs4();
    return text.size() == 1 && text.front() >= U' ' && text.front() != 0x7F ? text.front() : 0;
  }
  // With Ctrl the text is a control character; the key is the letter of the layout.
  const int key = event.key();
  return key < Qt::Key_Escape ? LatinOnSameKey(static_cast<char32_t>(key)) : 0;
}

}  // namespace

Key KeyOf(const QKeyEvent& event) {
  Key key;
  key.ctrl = event.modifiers().testFlag(Qt::ControlModifier);
  key.alt = event.modifiers().testFlag(Qt::AltModifier);
  key.shift = event.modifiers().testFlag(Qt::ShiftModifier);
  const int pressed = event.key();
  if (IsModifier(pressed)) {
    key.ctrl = key.ctrl || pressed == Qt::Key_Control;
    key.alt = key.alt || pressed == Qt::Key_Alt || pressed == Qt::Key_Meta;
    key.shift = key.shift || pressed == Qt::Key_Shift;
    return key;
  }
  if (pressed >= Qt::Key_F1 && pressed <= Qt::Key_F12) {
    key.code = static_cast<KeyCode>(static_cast<int>(KeyCode::kF1) + pressed - Qt::Key_F1);
    return key;
  }
  const auto* named = std::ranges::find(kNamedKeys, pressed, &NamedKey::qt);
  if (named != kNamedKeys.end()) {
    key.code = named->code;
    return key;
  }
  key.character = CharacterOf(event, key.ctrl || key.alt);
  if (!key.ctrl && !key.alt) key.shift = false;  // a capital is a character of its own
  return key;
}

}  // namespace kalvo

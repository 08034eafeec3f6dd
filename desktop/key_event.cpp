#include "desktop/key_event.h"

#include <algorithm>
#include <array>
#include <string_view>

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
                                   NamedKey{Qt::Key_Tab, KeyCode::kTab},
                                   NamedKey{Qt::Key_Backtab, KeyCode::kTab}};

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

// Letters by the places of their keys, for layouts that have neither Latin nor Greek ones: the
// numbers that X11 and Wayland give the three rows.
char32_t LetterAtPlace(quint32 place) {
  struct Row {
    quint32 first;
    std::u32string_view letters;
  };
  constexpr std::array kRows = {Row{24, U"QWERTYUIOP"}, Row{38, U"ASDFGHJKL"}, Row{52, U"ZXCVBNM"}};
  for (const Row& row : kRows) {
    if (place >= row.first && place < row.first + row.letters.size()) {
      return row.letters[place - row.first];
    }
  }
  return 0;
}

char32_t LatinOf(const QKeyEvent& event) {
  const int key = event.key();
  const char32_t latin =
      key < Qt::Key_Escape ? LatinOnSameKey(static_cast<char32_t>(key)) : char32_t{0};
  // These are on the place of Q on a Greek layout, on their own on a Latin one.
  const bool shared = key == Qt::Key_Semicolon || key == Qt::Key_Colon;
  if (latin < 0x80 && !shared) return latin;
  return LetterAtPlace(event.nativeScanCode());
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
  key.latin = LatinOf(event);
  return key;
}

}  // namespace kalvo

#pragma once

#include <string>

namespace kalvo {

/// The keys that mean something beside the character they give.
enum class KeyCode {
  kCharacter,
  kEnter,
  kEscape,
  kBackspace,
  kDelete,
  kInsert,
  kHome,
  kEnd,
  kPageUp,
  kPageDown,
  kLeft,
  kRight,
  kUp,
  kDown,
  kTab,
  kF1,
  kF2,
  kF3,
  kF4,
  kF5,
  kF6,
  kF7,
  kF8,
  kF9,
  kF10,
  kF11,
  kF12
};

/// One key pressed with its modifiers. A character counts without them as typed text; with Ctrl or
/// Alt it is the Latin capital on that key, whatever the keyboard's layout (LatinOnSameKey()).
struct Key {
  KeyCode code = KeyCode::kCharacter;
  char32_t character = 0;  ///< 0 unless the code is kCharacter
  bool ctrl = false;
  bool shift = false;
  bool alt = false;
  char32_t latin = 0;  ///< the Latin capital of the key's place, also of typed text; 0: none

  [[nodiscard]] bool IsText() const { return code == KeyCode::kCharacter && !ctrl && !alt; }

  /// Typed text is the same however it was typed: a capital is a character of its own.
  bool operator==(const Key& other) const {
    return code == other.code && character == other.character && ctrl == other.ctrl &&
           alt == other.alt && (shift == other.shift || (IsText() && character != 0));
  }
};

constexpr Key Plain(KeyCode code) { return {code, 0, false, false, false, 0}; }
constexpr Key Shift(KeyCode code) { return {code, 0, false, true, false, 0}; }
constexpr Key Alt(KeyCode code) { return {code, 0, false, false, true, 0}; }
constexpr Key Ctrl(KeyCode code) { return {code, 0, true, false, false, 0}; }
constexpr Key CtrlShift(KeyCode code) { return {code, 0, true, true, false, 0}; }
constexpr Key Ctrl(char letter) {
  const auto latin = static_cast<char32_t>(letter);
  return {KeyCode::kCharacter, latin, true, false, false, latin};
}
constexpr Key CtrlShift(char letter) {
  const auto latin = static_cast<char32_t>(letter);
  return {KeyCode::kCharacter, latin, true, true, false, latin};
}
constexpr Key Alt(char letter) {
  const auto latin = static_cast<char32_t>(letter);
  return {KeyCode::kCharacter, latin, false, false, true, latin};
}
/// A key that edits the text that has the focus: the clipboard's, and those that delete.
bool EditsText(const Key& key);

/// The Latin capital on the key that gives `character` on a Greek keyboard; Latin letters become
/// capitals, anything else stays.
char32_t LatinOnSameKey(char32_t character);

/// A character as it is typed on a Latin or a Greek keyboard.
Key Typed(char32_t character);
/// The same with Shift held.
Key ShiftTyped(char32_t character);

/// The keys that show the manual in every window; F1 only where it has no other use.
inline bool AsksForHelp(const Key& key) {
  return key == Plain(KeyCode::kF1) || key == Shift(KeyCode::kF1);
}

/// How a key is told beside a command: "Ctrl+Home", "PgUp", "F5".
std::string KeyText(const Key& key);

}  // namespace kalvo

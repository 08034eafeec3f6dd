#pragma once

#include <compare>
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

  auto operator<=>(const Key&) const = default;

  [[nodiscard]] bool IsText() const { return code == KeyCode::kCharacter && !ctrl && !alt; }
};

constexpr Key Plain(KeyCode code) { return {code, 0, false, false, false}; }
constexpr Key Shift(KeyCode code) { return {code, 0, false, true, false}; }
constexpr Key Alt(KeyCode code) { return {code, 0, false, false, true}; }
constexpr Key Ctrl(KeyCode code) { return {code, 0, true, false, false}; }
constexpr Key Ctrl(char letter) {
  return {KeyCode::kCharacter, static_cast<char32_t>(letter), true, false, false};
}
constexpr Key CtrlShift(char letter) {
  return {KeyCode::kCharacter, static_cast<char32_t>(letter), true, true, false};
}
constexpr Key Alt(char letter) {
  return {KeyCode::kCharacter, static_cast<char32_t>(letter), false, false, true};
}
constexpr Key Typed(char32_t character) {
  return {KeyCode::kCharacter, character, false, false, false};
}

/// The Latin capital on the key that gives `character` on a Greek keyboard; Latin letters become
/// capitals, anything else stays.
char32_t LatinOnSameKey(char32_t character);

/// How a key is told beside a command: "Ctrl+Home", "PgUp", "F5".
std::string KeyText(const Key& key);

}  // namespace kalvo

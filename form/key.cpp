#include "form/key.h"

#include <array>
#include <string_view>

#include "study/codepage.h"

namespace kalvo {
namespace {

// Letters of the Greek keyboard in the order of the Latin ones on the same keys, A to Z.
constexpr std::u32string_view kGreekCapitals = U"ΑΒΨΔΕΦΓΗΙΞΚΛΜΝΟΠ:ΡΣΤΘΩΣΧΥΖ";
constexpr std::u32string_view kGreekSmall = U"αβψδεφγηιξκλμνοπ;ρστθωςχυζ";
static_assert(kGreekCapitals.size() == 26 && kGreekSmall.size() == 26);

constexpr auto kNames = std::to_array<std::string_view>(
    {"",     "Enter", "Esc",   "Backspace", "Del",  "Ins", "Home", "End", "PgUp",
     "PgDn", "Left",  "Right", "Up",        "Down", "Tab", "F1",   "F2",  "F3",
     "F4",   "F5",    "F6",    "F7",        "F8",   "F9",  "F10",  "F11", "F12"});
static_assert(kNames.size() == static_cast<std::size_t>(KeyCode::kF12) + 1);

}  // namespace

char32_t LatinOnSameKey(char32_t character) {
  for (const std::u32string_view letters : {kGreekCapitals, kGreekSmall}) {
    const std::size_t at = letters.find(character);
    if (at != letters.npos) {
      return U'A' + static_cast<char32_t>(at);
    }
  }
  return character >= U'a' && character <= U'z' ? character - U'a' + U'A' : character;
}

bool EditsText(const Key& key) {
  constexpr std::u32string_view kLetters = U"ACVXZ";
  if (key == Plain(KeyCode::kDelete) || key == Plain(KeyCode::kBackspace) ||
      key == Shift(KeyCode::kInsert)) {
    return true;
  }
  const bool with_ctrl = key.code == KeyCode::kCharacter && key.ctrl && !key.alt && !key.shift;
  return with_ctrl && kLetters.find(key.character) != std::u32string_view::npos;
}

Key Typed(char32_t character) {
  return {KeyCode::kCharacter, character, false, false, false, LatinOnSameKey(character)};
}

Key ShiftTyped(char32_t character) {
  Key key = Typed(character);
  key.shift = true;
  return key;
}

std::string KeyText(const Key& key) {
  std::string text;
  text += key.ctrl ? "Ctrl+" : "";
  text += key.alt ? "Alt+" : "";
  text += key.shift ? "Shift+" : "";
  if (key.code == KeyCode::kCharacter) {
    AppendUtf8(text, key.character);
  } else {
    text += kNames[static_cast<std::size_t>(key.code)];
  }
  return text;
}

}  // namespace kalvo

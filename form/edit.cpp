#include "form/edit.h"

#include <algorithm>

#include "study/codepage.h"
#include "study/unicode_form.h"

namespace kalvo {
namespace {

bool IsBreak(char32_t character) {
  return (character >= U'\t' && character <= U'\r') || character == 0x85 || character == 0x2028 ||
         character == 0x2029;
}

bool IsSeparator(char character) { return character == '.' || character == ','; }

// Where the last character of a text that is not empty begins.
std::size_t LastCharacter(std::string_view text) {
  std::size_t at = text.size() - 1;
  while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80) --at;
  return at;
}

}  // namespace

std::string OneLine(std::string_view piece) {
  std::string line;
  std::size_t blanks = 0;  // for breaks since the last character
  char32_t last = 0;
  while (!piece.empty()) {
    const char32_t character = TakeCharacter(piece);
    if (!IsBreak(character)) {
      line.append(line.empty() ? 0 : blanks, ' ');
      blanks = 0;
      AppendUtf8(line, character);
    } else if (character != U'\n' || last != U'\r') {
      ++blanks;
    }
    last = character;
  }
  return line;
}

void JoinAccents(std::string& before, std::string& piece) {
  std::string_view first = piece;
  if (!first.empty() && IsMark(TakeCharacter(first)) && !before.empty()) {
    const std::size_t letter = LastCharacter(before);
    piece.insert(0, before, letter);
    before.erase(letter);
  }
  piece = ComposedForm(piece);
}

std::string NumberPiece(std::string_view piece, bool decimal, Separators separators) {
  std::string number(piece);
  if (number.size() > 1) {
    number.erase(number.find_last_not_of(" \t\r\n") + 1);
    number.erase(0, number.find_first_not_of(" \t\r\n"));
  }
  if (decimal && std::ranges::count_if(number, IsSeparator) == 1) {
    std::ranges::replace_if(number, IsSeparator, separators.decimal);
  }
  return number;
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::string_view rest = text;
  for (std::size_t i = 0; i < count && !rest.empty(); ++i) {
    TakeCharacter(rest);
  }
  return std::string(text.substr(0, text.size() - rest.size()));
}

}  // namespace kalvo

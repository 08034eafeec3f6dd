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

// `whole` without the sign that parts its thousands; as it is when they are no thousands.
std::string WithoutThousands(std::string_view whole) {
  std::string digits;
  std::size_t group = 0;
  for (std::size_t i = whole.size(); i > 0; --i) {
    if (!IsSeparator(whole[i - 1])) {
      digits.insert(0, 1, whole[i - 1]);
      ++group;
    } else if (group == 3 && whole[i - 1] == whole[whole.size() - 4]) {
      group = 0;
    } else {
      return std::string(whole);
    }
  }
  return digits;
}

std::string DecimalPiece(std::string_view number, char decimal) {
  const auto count = std::ranges::count_if(number, IsSeparator);
  if (count == 0) return std::string(number);
  const std::size_t last = number.find_last_of(".,");
  const std::size_t first = number.find_first_of(".,");
  if (count > 1 && number[first] == number[last]) return WithoutThousands(number);
  return WithoutThousands(number.substr(0, last)) + decimal + std::string(number.substr(last + 1));
}

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
  return decimal ? DecimalPiece(number, separators.decimal) : number;
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::string_view rest = text;
  for (std::size_t i = 0; i < count && !rest.empty(); ++i) {
    TakeCharacter(rest);
  }
  return std::string(text.substr(0, text.size() - rest.size()));
}

}  // namespace kalvo

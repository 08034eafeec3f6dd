#include "study/unicode_form.h"

#include <algorithm>
#include <array>

#include "study/codepage.h"

namespace kalvo {

namespace {

// A mark, and the letters that take it beside what they become.
struct Accent {
  char32_t mark;
  std::u32string_view letters;
  std::u32string_view composed;
};

constexpr std::array<Accent, 10> kAccents = {{
    {0x0301, U"ΑΕΗΙΟΥΩαεηιουω", U"ΆΈΉΊΌΎΏάέήίόύώ"},
    {0x0301, U"\u03CA\u03CB", U"\u0390\u03B0"},  // ϊ and ϋ
    {0x0308, U"ΙΥιυ", U"ΪΫϊϋ"},
    {0x0301, U"AEIOUYaeiouy", U"ÁÉÍÓÚÝáéíóúý"},
    {0x0300, U"AEIOUaeiou", U"ÀÈÌÒÙàèìòù"},
    {0x0302, U"AEIOUaeiou", U"ÂÊÎÔÛâêîôû"},
    {0x0303, U"ANOano", U"ÃÑÕãñõ"},
    {0x0308, U"AEIOUaeiouy", U"ÄËÏÖÜäëïöüÿ"},
    {0x030A, U"Aa", U"Åå"},
    {0x0327, U"Cc", U"Çç"},
}};

static_assert(std::all_of(kAccents.begin(), kAccents.end(), [](const Accent& mark) {
  return mark.letters.size() == mark.composed.size();
}));

// What Unicode writes in two ways that are the same: letters of polytonic keyboards, signs.
constexpr std::u32string_view kTwins =
    U"\u1F71\u1F73\u1F75\u1F77\u1F79\u1F7B\u1F7D\u1FBB\u1FC9\u1FCB\u1FDB\u1FF9\u1FEB\u1FFB"
    U"\u1FD3\u1FE3\u037E\u0387\u2126\u0340\u0341";
constexpr std::u32string_view kUsualForms =
    U"άέήίόύώΆΈΉΊΌΎΏ"
    U"\u0390\u03B0;\u00B7\u03A9\u0300\u0301";
static_assert(kTwins.size() == kUsualForms.size());

char32_t UsualForm(char32_t character) {
  const std::size_t at = kTwins.find(character);
  return at == std::u32string_view::npos ? character : kUsualForms[at];
}

// The letter with the mark in it; 0 when there is none.
char32_t Compose(char32_t letter, char32_t mark) {
  for (const Accent& row : kAccents) {
    const std::size_t at = row.mark == mark ? row.letters.find(letter) : std::u32string_view::npos;
    if (at != std::u32string_view::npos) {
      return row.composed[at];
    }
  }
  return 0;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

std::string ComposedForm(std::string_view utf8) {
  if (IsAscii(utf8)) {
    return std::string(utf8);
  }
  std::u32string characters;
  while (!utf8.empty()) {
    const char32_t next = UsualForm(TakeCharacter(utf8));
    const char32_t composed = characters.empty() ? 0 : Compose(characters.back(), next);
    if (composed != 0) {
      characters.back() = composed;
    } else {
      characters.push_back(next);
    }
  }
  std::string text;
  for (const char32_t character : characters) {
    AppendUtf8(text, character);
  }
  return text;
}

}  // namespace kalvo

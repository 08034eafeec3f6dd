#include "shell/search_text.h"

#include <algorithm>
#include <array>

#include "study/codepage.h"
#include "study/letter_case.h"
#include "study/unicode_form.h"

namespace kalvo {

namespace {

// Small letters, and what stands for them: with accents, of another case or sign.
struct Letter {
  char32_t plain;
  std::u32string_view variants;
};

constexpr std::array kLetters = {
    Letter{U'α', U"ά"},
    Letter{U'ε', U"έ"},
    Letter{U'η', U"ή"},
    Letter{U'ι', U"ίϊΐ"},
    Letter{U'ο', U"ό"},
    Letter{U'υ', U"ύϋΰ"},
    Letter{U'ω', U"ώ"},
    Letter{U'σ', U"ς"},
    Letter{U'\u03BC', U"\u00B5"},
    Letter{U'a', U"àáâãäåÀÁÂÃÄÅ"},
    Letter{U'c', U"çÇ"},
    Letter{U'e', U"èéêëÈÉÊË"},
    Letter{U'i', U"ìíîïÌÍÎÏ"},
    Letter{U'n', U"ñÑ"},
    Letter{U'o', U"òóôõöøÒÓÔÕÖØ"},
    Letter{U'u', U"ùúûüÙÚÛÜ"},
    Letter{U'y', U"ýÿÝ"},
};

// The block Greek Extended (The Unicode Standard): accented letters of the older orthography.
struct Range {
  char32_t first;
  char32_t last;
  char32_t plain;
};

constexpr std::array kOldGreek = {
    Range{0x1F00, 0x1F0F, U'α'}, Range{0x1F10, 0x1F1D, U'ε'}, Range{0x1F20, 0x1F2F, U'η'},
    Range{0x1F30, 0x1F3F, U'ι'}, Range{0x1F40, 0x1F4D, U'ο'}, Range{0x1F50, 0x1F5F, U'υ'},
    Range{0x1F60, 0x1F6F, U'ω'}, Range{0x1F70, 0x1F71, U'α'}, Range{0x1F72, 0x1F73, U'ε'},
    Range{0x1F74, 0x1F75, U'η'}, Range{0x1F76, 0x1F77, U'ι'}, Range{0x1F78, 0x1F79, U'ο'},
    Range{0x1F7A, 0x1F7B, U'υ'}, Range{0x1F7C, 0x1F7D, U'ω'}, Range{0x1F80, 0x1F8F, U'α'},
    Range{0x1F90, 0x1F9F, U'η'}, Range{0x1FA0, 0x1FAF, U'ω'}, Range{0x1FB0, 0x1FBC, U'α'},
    Range{0x1FC2, 0x1FC7, U'η'}, Range{0x1FC8, 0x1FC9, U'ε'}, Range{0x1FCA, 0x1FCC, U'η'},
    Range{0x1FD0, 0x1FDB, U'ι'}, Range{0x1FE0, 0x1FE3, U'υ'}, Range{0x1FE4, 0x1FE5, U'ρ'},
    Range{0x1FE6, 0x1FEB, U'υ'}, Range{0x1FEC, 0x1FEC, U'ρ'}, Range{0x1FF2, 0x1FF7, U'ω'},
    Range{0x1FF8, 0x1FF9, U'ο'}, Range{0x1FFA, 0x1FFC, U'ω'},
};

char32_t Plain(char32_t character) {
  for (const Letter& letter : kLetters) {
    if (letter.variants.find(character) != std::u32string_view::npos) {
      return letter.plain;
    }
  }
  for (const Range& range : kOldGreek) {
    if (character >= range.first && character <= range.last) {
      return range.plain;
    }
  }
  return character;
}

// Whether a byte of a key is part of a word.
bool InWord(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code >= 0x80 || (code >= '0' && code <= '9') || (code >= 'a' && code <= 'z');
}

}  // namespace

std::string SearchKey(std::string_view utf8) {
  const std::string lower = LowerCase(utf8);
  std::string key;
  for (std::string_view rest = lower; !rest.empty();) {
    const char32_t character = TakeCharacter(rest);
    if (character < 0x80) {
      key += static_cast<char>(character);
    } else if (!IsMark(character)) {
      AppendUtf8(key, Plain(character));
    }
  }
  return key;
}

bool MatchesTypeAhead(std::string_view title, std::string_view typed) {
  const std::string key = SearchKey(title);
  const std::string wanted = SearchKey(typed);
  for (std::size_t at = key.find(wanted); at != std::string::npos; at = key.find(wanted, at + 1)) {
    if (at == 0 || !InWord(key[at - 1])) {
      return true;
    }
  }
  return false;
}

bool FitsMask(std::string_view name, std::string_view mask) {
  std::size_t at = 0;
  std::size_t in_mask = 0;
  // Where to go back to: a longer run for the last star. What the stars before it took need never
  // change, since the last one can take all that a longer run of theirs would leave it.
  std::size_t star = std::string_view::npos;
  std::size_t run_end = 0;
  while (at < name.size()) {
    if (in_mask < mask.size() && mask[in_mask] == '*') {
      star = in_mask++;
      run_end = at;
    } else if (in_mask < mask.size() && mask[in_mask] == name[at]) {
      ++in_mask;
      ++at;
    } else if (star != std::string_view::npos) {
      in_mask = star + 1;
      at = ++run_end;
    } else {
      return false;
    }
  }
  return mask.find_first_not_of('*', in_mask) == std::string_view::npos;
}

bool StandsBefore(std::string_view a, std::string_view b) {
  const std::string key_a = SearchKey(a);
  const std::string key_b = SearchKey(b);
  return key_a == key_b ? a < b : key_a < key_b;
}

}  // namespace kalvo

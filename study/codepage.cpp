#include "study/codepage.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace kalvo {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Characters of the bytes 0x80 to 0xFF.
constexpr std::array<std::uint16_t, 128> kHighHalf = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x0088, 0x2030, 0x008A, 0x2039, 0x008C, 0x008D, 0x008E, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x0098, 0x2122, 0x009A, 0x203A, 0x009C, 0x009D, 0x009E, 0x009F,  // 98
    0x00A0, 0x0385, 0x0386, 0x00A3, 0x00A4, 0x00A5, 0x00A6, 0x00A7,  // A0
    0x00A8, 0x00A9, 0xF8F9, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x2015,  // A8
    0x00B0, 0x00B1, 0x00B2, 0x00B3, 0x0384, 0x00B5, 0x00B6, 0x00B7,  // B0
    0x0388, 0x0389, 0x038A, 0x00BB, 0x038C, 0x00BD, 0x038E, 0x038F,  // B8
    0x0390, 0x0391, 0x0392, 0x0393, 0x0394, 0x0395, 0x0396, 0x0397,  // C0
    0x0398, 0x0399, 0x039A, 0x039B, 0x039C, 0x039D, 0x039E, 0x039F,  // C8
    0x03A0, 0x03A1, 0xF8FA, 0x03A3, 0x03A4, 0x03A5, 0x03A6, 0x03A7,  // D0
    0x03A8, 0x03A9, 0x03AA, 0x03AB, 0x03AC, 0x03AD, 0x03AE, 0x03AF,  // D8
    0x03B0, 0x03B1, 0x03B2, 0x03B3, 0x03B4, 0x03B5, 0x03B6, 0x03B7,  // E0
    0x03B8, 0x03B9, 0x03BA, 0x03BB, 0x03BC, 0x03BD, 0x03BE, 0x03BF,  // E8
    0x03C0, 0x03C1, 0x03C2, 0x03C3, 0x03C4, 0x03C5, 0x03C6, 0x03C7,  // F0
    0x03C8, 0x03C9, 0x03CA, 0x03CB, 0x03CC, 0x03CD, 0x03CE, 0xF8FB,  // F8
};

constexpr char32_t kGreekBegin = 0x0370;
constexpr char32_t kGreekEnd = 0x0400;

// Bytes of the Greek characters, of which texts are made for the most part; 0 for one without.
constexpr auto kGreekBytes = [] {
  std::array<char, kGreekEnd - kGreekBegin> bytes{};
  for (std::size_t i = 0; i < kHighHalf.size(); ++i) {
    if (kHighHalf[i] < kGreekBegin || kHighHalf[i] >= kGreekEnd) continue;
    bytes[kHighHalf[i] - kGreekBegin] = static_cast<char>(i + 0x80);
  }
  return bytes;
}();

// Length of the sequence that a lead byte opens, 0 for a byte that opens none.
int SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

// Overlong forms, surrogates and values past the last character are no characters.
bool IsScalar(char32_t value, int length) {
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  return value >= kSmallest[static_cast<std::size_t>(length)] && value <= 0x10FFFF &&
         (value < 0xD800 || value > 0xDFFF);
}

}  // namespace

char32_t TakeCharacter(std::string_view& utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  const int length = SequenceLength(lead);
  if (length == 1) {
    utf8.remove_prefix(1);
    return lead;
  }
  char32_t value = length == 0 ? 0 : lead & (0xFFU >> (length + 1));
  bool whole = length > 1 && utf8.size() >= static_cast<std::size_t>(length);
  for (std::size_t i = 1; whole && i < static_cast<std::size_t>(length); ++i) {
    const auto next = static_cast<unsigned char>(utf8[i]);
    whole = (next & 0xC0U) == 0x80U;
    value = (value << 6U) | (next & 0x3FU);
  }
  if (!whole || !IsScalar(value, length)) {
    utf8.remove_prefix(1);
    return kReplacement;
  }
  utf8.remove_prefix(static_cast<std::size_t>(length));
  return value;
}

void AppendUtf8(std::string& text, char32_t character) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0 | (character >> 6U));
    append(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    append(0xE0 | (character >> 12U));
    append(0x80 | ((character >> 6U) & 0x3F));
    append(0x80 | (character & 0x3F));
  } else {
    append(0xF0 | (character >> 18U));
    append(0x80 | ((character >> 12U) & 0x3F));
    append(0x80 | ((character >> 6U) & 0x3F));
    append(0x80 | (character & 0x3F));
  }
}

std::string FromCodePage(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendUtf8(text, byte < 0x80 ? byte : kHighHalf[byte - 0x80U]);
  }
  return text;
}

std::optional<char> CodePageByte(char32_t character) {
  if (character < 0x80) {
    return static_cast<char>(character);
  }
  if (character >= kGreekBegin && character < kGreekEnd) {
    const char byte = kGreekBytes[character - kGreekBegin];
    return byte == 0 ? std::nullopt : std::optional(byte);
  }
  const auto* at = std::ranges::find(kHighHalf, character);
  if (at == kHighHalf.end()) return std::nullopt;
  return static_cast<char>(at - kHighHalf.begin() + 0x80);
}

std::string ToCodePage(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty()) {
    bytes += CodePageByte(TakeCharacter(utf8)).value_or('?');
  }
  return bytes;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t before = text.size();
    if (TakeCharacter(text) == kReplacement && before - text.size() == 1) {
      return false;
    }
  }
  return true;
}

std::size_t CountCharacters(std::string_view utf8) {
  std::size_t count = 0;
  for (; !utf8.empty(); ++count) {
    TakeCharacter(utf8);
  }
  return count;
}

}  // namespace kalvo

#include "platform/jet/jet_bytes.h"

#include <array>
#include <numeric>
#include <utility>

#include "study/codepage.h"

namespace kalvo::jet {
namespace {

unsigned ByteOf(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

char Low(std::uint32_t value) { return static_cast<char>(value & 0xFFU); }

// Half of a pair of UTF-16 is no character of a text column.
void AppendUnit(std::string& text, unsigned unit) {
  const bool is_half = unit >= 0xD800 && unit < 0xE000;
  AppendUtf8(text, is_half ? U'\uFFFD' : static_cast<char32_t>(unit));
}

// A text in which a byte stands for a character whose upper byte is 0; a byte 0 switches to two
// bytes a character and back. Source: HACKING, "Text Data Type".
std::string Expanded(std::string_view bytes) {
  std::string text;
  bool compressed = true;
  for (std::size_t at = 0; at < bytes.size();) {
    if (bytes[at] == '\0') {
      compressed = !compressed;
      ++at;
    } else if (compressed || at + 1 == bytes.size()) {
      AppendUnit(text, ByteOf(bytes, at++));
    } else {
      AppendUnit(text, U16At(bytes, at));
      at += 2;
    }
  }
  return text;
}

}  // namespace

unsigned U16At(std::string_view bytes, std::size_t at) {
  return ByteOf(bytes, at) | ByteOf(bytes, at + 1) << 8U;
}

std::uint32_t U32At(std::string_view bytes, std::size_t at) {
  return U16At(bytes, at) | std::uint32_t{U16At(bytes, at + 2)} << 16U;
}

void PutU16(std::string& bytes, std::size_t at, unsigned value) {
  bytes[at] = Low(value);
  bytes[at + 1] = Low(value >> 8U);
}

void PutU32(std::string& bytes, std::size_t at, std::uint32_t value) {
  PutU16(bytes, at, value & 0xFFFFU);
  PutU16(bytes, at + 2, value >> 16U);
}

std::string Scrambled(std::string_view bytes, std::string_view key) {
  std::array<unsigned char, 256> box{};
  std::iota(box.begin(), box.end(), static_cast<unsigned char>(0));
  unsigned j = 0;
  for (std::size_t i = 0; i < box.size(); ++i) {
    j = (j + box[i] + ByteOf(key, i % key.size())) & 0xFFU;
    std::swap(box[i], box[j]);
  }
  std::string result(bytes);
  std::size_t i = 0;
  j = 0;
  for (char& byte : result) {
    i = (i + 1) & 0xFFU;
    j = (j + box[i]) & 0xFFU;
    std::swap(box[i], box[j]);
    const auto stream = box[(box[i] + box[j]) & 0xFFU];
    byte = static_cast<char>(static_cast<unsigned char>(byte) ^ stream);
  }
  return result;
}

void AppendU8(std::string& bytes, unsigned value) { bytes += Low(value); }

void AppendU16(std::string& bytes, unsigned value) { bytes += {Low(value), Low(value >> 8U)}; }

void AppendU32(std::string& bytes, std::uint32_t value) {
  AppendU16(bytes, value & 0xFFFFU);
  AppendU16(bytes, value >> 16U);
}

std::string ToJetText(std::string_view utf8, std::size_t most) {
  std::string bytes;
  for (std::size_t i = 0; i < most && !utf8.empty(); ++i) {
    const char32_t character = TakeCharacter(utf8);
    AppendU16(bytes, character > 0xFFFF ? U'?' : character);
  }
  return bytes;
}

std::string FromJetText(std::string_view bytes) {
  constexpr std::string_view kCompressed = "\xFF\xFE";
  if (bytes.starts_with(kCompressed)) return Expanded(bytes.substr(kCompressed.size()));
  std::string text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) AppendUnit(text, U16At(bytes, at));
  return text;
}

}  // namespace kalvo::jet

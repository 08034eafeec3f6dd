#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kalvo::jet {

/// Little-endian values at a place that is within the bytes.
unsigned U16At(std::string_view bytes, std::size_t at);
std::uint32_t U32At(std::string_view bytes, std::size_t at);
void PutU16(std::string& bytes, std::size_t at, unsigned value);
void PutU32(std::string& bytes, std::size_t at, std::uint32_t value);
void AppendU8(std::string& bytes, unsigned value);
void AppendU16(std::string& bytes, unsigned value);
void AppendU32(std::string& bytes, std::uint32_t value);

/// Whether `count` bytes from `at` on are within the bytes.
inline bool Holds(std::string_view bytes, std::size_t at, std::size_t count) {
  return at <= bytes.size() && count <= bytes.size() - at;
}

/// The bytes scrambled, or back again, by RC4.
std::string Scrambled(std::string_view bytes, std::string_view key);

/// UTF-8 as the two bytes a character of a text column, at most `most` of them; a character above
/// U+FFFF is "?".
std::string ToJetText(std::string_view utf8, std::size_t most);
/// A text column's bytes, plain or compressed, in UTF-8.
std::string FromJetText(std::string_view bytes);

}  // namespace kalvo::jet

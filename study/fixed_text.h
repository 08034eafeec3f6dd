#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "study/codepage.h"

namespace kalvo {

/// `text` without blanks at either end; other white space stays.
constexpr std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// N bytes of code page 1253 as they stand in the file: left-justified, padded with blanks, no
/// terminator. Untouched bytes survive reading and writing whatever they are.
template <std::size_t N>
class FixedText {
 public:
  static constexpr std::size_t kSize = N;

  constexpr FixedText() { bytes_.fill(' '); }

  /// From code page bytes; too long a text is cut at the right.
  static constexpr FixedText FromBytes(std::string_view bytes) {
    FixedText text;
    for (std::size_t i = 0; i < N && i < bytes.size(); ++i) {
      text.bytes_[i] = bytes[i];
    }
    return text;
  }

  /// From UTF-8; a character that the code page lacks becomes "?".
  static FixedText FromUtf8(std::string_view text) { return FromBytes(ToCodePage(text)); }

  [[nodiscard]] constexpr std::string_view bytes() const { return {bytes_.data(), N}; }
  [[nodiscard]] constexpr char* data() { return bytes_.data(); }

  /// The bytes without blanks at either end.
  [[nodiscard]] constexpr std::string_view Trimmed() const { return Trim(bytes()); }

  /// The trimmed text as UTF-8.
  [[nodiscard]] std::string Utf8() const { return FromCodePage(Trimmed()); }

  constexpr bool operator==(const FixedText&) const = default;

 private:
  std::array<char, N> bytes_;
};

}  // namespace kalvo

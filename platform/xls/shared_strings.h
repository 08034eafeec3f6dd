#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/xls/biff_records.h"

namespace kalvo {

/// The most characters of a cell's text, in UTF-16.
constexpr std::size_t kMostCharacters = 32767;

/// A text of the shared strings. What is not its characters is carried as it is in the file.
struct SharedText {
  std::string text;       ///< UTF-8
  std::string runs;       ///< fonts of its parts, 4 bytes each
  std::string extension;  ///< phonetic text
};

/// The texts that cells refer to by number.
class SharedTexts {
 public:
  /// The number of `text`, which is added when it is new and cut after kMostCharacters.
  std::uint32_t Add(std::string_view text);
  /// Adds a text with all that comes with it.
  std::uint32_t Append(SharedText text);

  [[nodiscard]] std::size_t size() const { return texts_.size(); }
  [[nodiscard]] const SharedText& operator[](std::size_t index) const { return texts_[index]; }

 private:
  std::vector<SharedText> texts_;
  std::unordered_map<std::string, std::uint32_t> plain_;
};

/// Reads an SST record ([MS-XLS], SST). Errors, without a file: it holds less than it tells.
Result<SharedTexts> ReadSharedTexts(const Record& record);

/// The SST record of those texts, in that order, to which cells refer `references` times. No part
/// of it is longer than biff::kMostBytes.
Record WriteSharedTexts(const std::vector<const SharedText*>& texts, std::uint32_t references);

}  // namespace kalvo

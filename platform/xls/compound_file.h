#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "study/result.h"

namespace kalvo {

/// A stream of a compound file, or a storage with entries of its own, as a file and a folder.
struct CompoundEntry {
  std::string name;
  bool is_storage = false;
  std::string bytes;                         ///< a stream's
  std::vector<CompoundEntry> entries;        ///< a storage's
  std::array<unsigned char, 16> class_id{};  ///< a storage's: of the program it belongs to

  [[nodiscard]] const CompoundEntry* Find(std::string_view entry) const;
  [[nodiscard]] CompoundEntry* Find(std::string_view entry);
};

/// The longest compound file that is read, in bytes.
constexpr std::size_t kMostCompoundBytes = 32U << 20U;

/// Whether the bytes begin as those of a compound file do.
bool IsCompoundFile(std::string_view bytes);

/// The root of a compound file. Errors, without a file: it is cut or damaged, or too large.
Result<CompoundEntry> ReadCompoundFile(std::string_view bytes);

/// The bytes of a compound file with that root. They hold no time. Error, without a file: it did
/// not come about.
Result<std::string> WriteCompoundFile(const CompoundEntry& root);

}  // namespace kalvo

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "study/result.h"

namespace kalvo {

/// What is known of a file without opening it.
struct FileStatus {
  std::uint64_t length = 0;
  bool is_folder = false;
  std::int64_t modified = 0;  ///< seconds since 1970, UTC
};

/// The files of the world. Errors are told in Greek and name the file.
class Disk {
 public:
  virtual ~Disk() = default;

  [[nodiscard]] virtual std::optional<FileStatus> Status(
      const std::filesystem::path& path) const = 0;
  /// The whole file.
  [[nodiscard]] virtual Result<std::string> Read(const std::filesystem::path& path) const = 0;
  /// The first `length` bytes, fewer when the file is shorter.
  [[nodiscard]] virtual Result<std::string> ReadHead(const std::filesystem::path& path,
                                                     std::size_t length) const;
  /// Creates or truncates the file and writes every byte; a short write is an error.
  virtual Outcome Write(const std::filesystem::path& path, std::string bytes) = 0;
  /// Forces a file's bytes, or a folder's names, onto the medium.
  virtual Outcome Flush(const std::filesystem::path& path) = 0;
  /// Gives `from` the name `to`, replacing what stood there.
  virtual Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  /// Removes a file, or a folder that is empty.
  virtual Outcome Remove(const std::filesystem::path& path) = 0;
  /// Makes the folder and those above it.
  virtual Outcome MakeFolder(const std::filesystem::path& path) = 0;
  /// Names in the folder in byte order; none when it cannot be read.
  [[nodiscard]] virtual std::vector<std::string> List(
      const std::filesystem::path& folder) const = 0;
  /// True when List() tells all that is in the folder; one that is gone or closed to the user
  /// looks empty to it.
  [[nodiscard]] virtual bool CanList(const std::filesystem::path& folder) const;

  [[nodiscard]] bool Exists(const std::filesystem::path& path) const {
    return Status(path).has_value();
  }
};

/// End of the name under which a file's new bytes stand beside it until it is replaced.
constexpr const char* kBesideEnd = ".new~";

/// Writes `path` so that a reader sees the old file or the new one, whole: beside, then renamed.
/// A failed write leaves the old file and no rest behind.
Outcome ReplaceFile(Disk& disk, const std::filesystem::path& path, std::string bytes);

/// The entry of `folder` that is `name` ignoring case (Latin and Greek) and the form in which
/// accents are written (ComposedForm()), the first in name order.
std::optional<std::string> FindIgnoringCase(const Disk& disk, const std::filesystem::path& folder,
                                            std::string_view name);

}  // namespace kalvo

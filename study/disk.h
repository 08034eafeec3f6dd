#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
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
  bool writable = true;       ///< false: the user is not meant to change it
};

/// What nobody else gets while it lives (Disk::Lock()).
class DiskLock {
 public:
  DiskLock() = default;
  DiskLock(const DiskLock&) = delete;
  DiskLock& operator=(const DiskLock&) = delete;
  virtual ~DiskLock() = default;
};

/// The files of the world. Errors are told in Greek and name the file.
class Disk {
 public:
  virtual ~Disk() = default;

  /// Nothing when the file is surely not there; an error when that cannot be found out.
  [[nodiscard]] virtual Result<std::optional<FileStatus>> Status(
      const std::filesystem::path& path) const = 0;
  /// The whole file. A file that is not there is an error that IsMissing(), here and below.
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
  /// Dates a file, in seconds since 1970, UTC. Where there are no dates it does nothing.
  virtual Outcome SetModified(const std::filesystem::path& path, std::int64_t moment);
  /// Makes the folder and those above it.
  virtual Outcome MakeFolder(const std::filesystem::path& path) = 0;
  /// Names of all that is in the folder, in byte order.
  [[nodiscard]] virtual Result<std::vector<std::string>> List(
      const std::filesystem::path& folder) const = 0;
  /// Where a link leads, at its end; any other path as it is.
  [[nodiscard]] virtual std::filesystem::path Resolve(const std::filesystem::path& path) const;
  /// Whether two paths that are there lead to the same file or folder.
  [[nodiscard]] virtual bool IsSamePlace(const std::filesystem::path& a,
                                         const std::filesystem::path& b) const;
  /// The lock of that name, which no other program has at the same time and none keeps that has
  /// ended. The only error is of kind kBusy: another held it for as long as `patience`. Where there
  /// are no locks it bars nobody.
  [[nodiscard]] virtual Result<std::unique_ptr<DiskLock>> Lock(const std::filesystem::path& path,
                                                               std::chrono::milliseconds patience);

  /// False when the path is surely not there. What cannot be looked at counts as there: whoever
  /// reads it gets the reason, and nobody takes it for missing.
  [[nodiscard]] bool Exists(const std::filesystem::path& path) const;
  /// True when a folder is surely there.
  [[nodiscard]] bool IsFolder(const std::filesystem::path& path) const;
};

/// End of the name under which a file's new bytes stand beside it until it is replaced.
constexpr const char* kBesideEnd = ".new~";

/// Writes `path` so that a reader sees the old file or the new one, whole: beside, then renamed.
/// A failed write leaves the old file and no rest behind.
Outcome ReplaceFile(Disk& disk, const std::filesystem::path& path, std::string bytes);

/// The entry of `folder` that is `name` ignoring case (Latin and Greek) and the form in which
/// accents are written (ComposedForm()), the first in name order. A folder that is not there holds
/// none. Error: the folder cannot be read.
Result<std::optional<std::string>> FindIgnoringCase(const Disk& disk,
                                                    const std::filesystem::path& folder,
                                                    std::string_view name);

}  // namespace kalvo

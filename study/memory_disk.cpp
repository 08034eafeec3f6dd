#include "study/memory_disk.h"

#include <algorithm>

namespace kalvo {

namespace {

FileError Missing(const std::filesystem::path& path) {
  return {path, "Το αρχείο δεν υπάρχει", FileErrorKind::kMissing};
}

}  // namespace

Result<std::optional<FileStatus>> MemoryDisk::Status(const std::filesystem::path& path) const {
  if (folders_.contains(path)) {
    return std::optional(FileStatus{0, true, 0});
  }
  const auto found = files_.find(path);
  if (found == files_.end()) {
    return std::optional<FileStatus>();
  }
  return std::optional(FileStatus{found->second.bytes.size(), false, found->second.modified});
}

Result<std::string> MemoryDisk::Read(const std::filesystem::path& path) const {
  const auto found = files_.find(path);
  if (found == files_.end()) {
    return Missing(path);
  }
  return found->second.bytes;
}

Outcome MemoryDisk::Write(const std::filesystem::path& path, std::string bytes) {
  files_[path] = {std::move(bytes)};
  return Done{};
}

Outcome MemoryDisk::Flush(const std::filesystem::path& /*path*/) { return Done{}; }

Outcome MemoryDisk::Rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  const auto found = files_.find(from);
  if (found == files_.end()) {
    return Missing(from);
  }
  File file = std::move(found->second);
  files_.erase(found);
  files_[to] = std::move(file);
  return Done{};
}

Outcome MemoryDisk::Remove(const std::filesystem::path& path) {
  if (folders_.contains(path) && !List(path)->empty()) {
    return FileError{path, "Ο φάκελος δεν είναι άδειος"};
  }
  if (files_.erase(path) == 0 && folders_.erase(path) == 0) {
    return Missing(path);
  }
  return Done{};
}

Outcome MemoryDisk::SetModified(const std::filesystem::path& path, std::int64_t moment) {
  const auto found = files_.find(path);
  if (found == files_.end()) {
    return Missing(path);
  }
  found->second.modified = moment;
  return Done{};
}

Outcome MemoryDisk::MakeFolder(const std::filesystem::path& path) {
  for (std::filesystem::path at = path.has_filename() ? path : path.parent_path();
       at.has_relative_path(); at = at.parent_path()) {
    if (files_.contains(at)) {
      return FileError{at, "Ο φάκελος δεν υπάρχει"};
    }
    folders_.insert(at);
  }
  return Done{};
}

Result<std::vector<std::string>> MemoryDisk::List(const std::filesystem::path& folder) const {
  std::vector<std::string> names;
  for (const auto& [path, file] : files_) {
    if (path.parent_path() == folder) {
      names.push_back(path.filename().string());
    }
  }
  for (const std::filesystem::path& path : folders_) {
    if (path.parent_path() == folder) {
      names.push_back(path.filename().string());
    }
  }
  if (names.empty() && !folders_.contains(folder)) {
    return FileError{folder, "Ο φάκελος δεν υπάρχει", FileErrorKind::kMissing};
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace kalvo

#include "study/memory_disk.h"

namespace kalvo {

namespace {

FileError Missing(const std::filesystem::path& path) { return {path, "Το αρχείο δεν υπάρχει"}; }

}  // namespace

std::optional<FileStatus> MemoryDisk::Status(const std::filesystem::path& path) const {
  const auto found = files_.find(path);
  if (found == files_.end()) {
    return std::nullopt;
  }
  return FileStatus{found->second.size(), false, 0};
}

Result<std::string> MemoryDisk::Read(const std::filesystem::path& path) const {
  const auto found = files_.find(path);
  if (found == files_.end()) {
    return Missing(path);
  }
  return found->second;
}

Outcome MemoryDisk::Write(const std::filesystem::path& path, std::string bytes) {
  files_[path] = std::move(bytes);
  return Done{};
}

Outcome MemoryDisk::Flush(const std::filesystem::path& /*path*/) { return Done{}; }

Outcome MemoryDisk::Rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  const auto found = files_.find(from);
  if (found == files_.end()) {
    return Missing(from);
  }
  std::string bytes = std::move(found->second);
  files_.erase(found);
  files_[to] = std::move(bytes);
  return Done{};
}

Outcome MemoryDisk::Remove(const std::filesystem::path& path) {
  if (files_.erase(path) == 0) {
    return Missing(path);
  }
  return Done{};
}

Outcome MemoryDisk::MakeFolder(const std::filesystem::path& /*path*/) { return Done{}; }

std::vector<std::string> MemoryDisk::List(const std::filesystem::path& folder) const {
  std::vector<std::string> names;
  for (const auto& [path, bytes] : files_) {
    if (path.parent_path() == folder) {
      names.push_back(path.filename().string());
    }
  }
  return names;
}

}  // namespace kalvo

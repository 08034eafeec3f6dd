#pragma once

#include <map>
#include <set>

#include "study/disk.h"

namespace kalvo {

/// Files that live and die with the object: the work folder of the command line and of tests.
/// Every folder can be written to; those made are listed too.
class MemoryDisk : public Disk {
 public:
  [[nodiscard]] Result<std::optional<FileStatus>> Status(
      const std::filesystem::path& path) const override;
  [[nodiscard]] Result<std::string> Read(const std::filesystem::path& path) const override;
  Outcome Write(const std::filesystem::path& path, std::string bytes) override;
  Outcome Flush(const std::filesystem::path& path) override;
  Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
  Outcome Remove(const std::filesystem::path& path) override;
  Outcome SetModified(const std::filesystem::path& path, std::int64_t moment) override;
  Outcome MakeFolder(const std::filesystem::path& path) override;
  [[nodiscard]] Result<std::vector<std::string>> List(
      const std::filesystem::path& folder) const override;

 private:
  struct File {
    std::string bytes;
    std::int64_t modified = 0;
  };

  std::map<std::filesystem::path, File> files_;
  std::set<std::filesystem::path> folders_;
};

}  // namespace kalvo

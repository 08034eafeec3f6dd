#pragma once

#include "study/disk.h"

namespace kalvo {

/// The machine's own files.
class RealDisk : public Disk {
 public:
  [[nodiscard]] Result<std::optional<FileStatus>> Status(
      const std::filesystem::path& path) const override;
  [[nodiscard]] Result<std::string> Read(const std::filesystem::path& path) const override;
  [[nodiscard]] Result<std::string> ReadHead(const std::filesystem::path& path,
                                             std::size_t length) const override;
  Outcome Write(const std::filesystem::path& path, std::string bytes) override;
  Outcome Flush(const std::filesystem::path& path) override;
  Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
  Outcome Remove(const std::filesystem::path& path) override;
  Outcome SetModified(const std::filesystem::path& path, std::int64_t moment) override;
  Outcome MakeFolder(const std::filesystem::path& path) override;
  [[nodiscard]] Result<std::vector<std::string>> List(
      const std::filesystem::path& folder) const override;
  [[nodiscard]] std::filesystem::path Resolve(const std::filesystem::path& path) const override;
  [[nodiscard]] bool IsSamePlace(const std::filesystem::path& a,
                                 const std::filesystem::path& b) const override;
  /// A file of that name while the lock lives, which a killed program leaves.
  [[nodiscard]] Result<std::unique_ptr<DiskLock>> Lock(const std::filesystem::path& path,
                                                       std::chrono::milliseconds patience) override;

 protected:
  /// Who may read and write the file. False: the medium or the file's owner refuses.
  virtual bool SetMode(const std::filesystem::path& path, unsigned mode);
};

/// The Greek reason for an error number of the system.
std::string ReasonOf(int error_number);

}  // namespace kalvo

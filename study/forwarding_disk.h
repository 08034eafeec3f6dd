#pragma once

#include <utility>

#include "study/disk.h"

namespace kalvo {

/// Passes everything on to another disk.
class ForwardingDisk : public Disk {
 public:
  explicit ForwardingDisk(Disk& inner) : inner_(inner) {}

  [[nodiscard]] Result<std::optional<FileStatus>> Status(
      const std::filesystem::path& path) const override {
    return inner_.Status(path);
  }
  [[nodiscard]] Result<std::string> Read(const std::filesystem::path& path) const override {
    return inner_.Read(path);
  }
  [[nodiscard]] Result<std::string> ReadHead(const std::filesystem::path& path,
                                             std::size_t length) const override {
    return inner_.ReadHead(path, length);
  }
  Outcome Write(const std::filesystem::path& path, std::string bytes) override {
    return inner_.Write(path, std::move(bytes));
  }
  Outcome Flush(const std::filesystem::path& path) override { return inner_.Flush(path); }
  Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    return inner_.Rename(from, to);
  }
  Outcome Remove(const std::filesystem::path& path) override { return inner_.Remove(path); }
  Outcome SetModified(const std::filesystem::path& path, std::int64_t moment) override {
    return inner_.SetModified(path, moment);
  }
  Outcome MakeFolder(const std::filesystem::path& path) override { return inner_.MakeFolder(path); }
  [[nodiscard]] Result<std::vector<std::string>> List(
      const std::filesystem::path& folder) const override {
    return inner_.List(folder);
  }
  [[nodiscard]] std::filesystem::path Resolve(const std::filesystem::path& path) const override {
    return inner_.Resolve(path);
  }
  [[nodiscard]] bool IsSamePlace(const std::filesystem::path& a,
                                 const std::filesystem::path& b) const override {
    return inner_.IsSamePlace(a, b);
  }
  [[nodiscard]] Result<std::unique_ptr<DiskLock>> Lock(
      const std::filesystem::path& path, std::chrono::milliseconds patience) override {
    return inner_.Lock(path, patience);
  }

 protected:
  Disk& inner_;
};

}  // namespace kalvo

#pragma once

#include <map>

#include "study/clock.h"
#include "tests/support/failing_disk.h"

namespace kalvo {

/// A disk whose files were changed when a test says; what is written anew bears `now`.
class DatedDisk : public ForwardingDisk {
 public:
  using ForwardingDisk::ForwardingDisk;

  std::int64_t now = 1'000'000;

  void Date(const std::filesystem::path& path, std::int64_t moment) { modified_[path] = moment; }

  [[nodiscard]] Result<std::optional<FileStatus>> Status(
      const std::filesystem::path& path) const override {
    auto status = inner_.Status(path);
    if (const auto found = modified_.find(path); status && *status && found != modified_.end()) {
      (*status)->modified = found->second;
    }
    return status;
  }
  Outcome SetModified(const std::filesystem::path& path, std::int64_t moment) override {
    Date(path, moment);
    return Done{};
  }
  Outcome Write(const std::filesystem::path& path, std::string bytes) override {
    modified_[path] = now;
    return inner_.Write(path, std::move(bytes));
  }
  Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    modified_[to] = modified_[from];
    return inner_.Rename(from, to);
  }

 private:
  std::map<std::filesystem::path, std::int64_t> modified_;
};

/// A clock that stands where a test puts it.
class StandingClock : public NoWait {
 public:
  std::int64_t now = 1'000'000;
  [[nodiscard]] std::int64_t Now() const override { return now; }
};

}  // namespace kalvo

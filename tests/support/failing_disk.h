#pragma once

#include <algorithm>
#include <csignal>
#include <functional>
#include <limits>
#include <set>
#include <string>
#include <string_view>

#include "study/forwarding_disk.h"

namespace kalvo {

/// A disk that runs full after a count of bytes, or fails at one of its changing operations
/// (Write, Flush, Rename, Remove, SetModified, MakeFolder, counted from 1), or once at a read. What
/// a failing write got onto the disk stays there.
class FailingDisk : public ForwardingDisk {
 public:
  /// How long a failure that was reached lasts.
  enum class Lasting { kOnce, kFromThenOn };

  using ForwardingDisk::ForwardingDisk;

  void FailAfterBytes(std::size_t bytes) { room_ = bytes; }
  void FailAtOperation(int number, Lasting lasting) {
    first_bad_ = number;
    last_bad_ = lasting == Lasting::kOnce ? number : kNever;
    operations_ = 0;
  }
  /// Of the reads from now on, of files of that name or without one of all, the one of that number
  /// fails, counted from 1.
  void FailAtRead(int number, std::string_view name = {}) {
    bad_read_ = number;
    bad_name_ = name;
    reads_ = 0;
  }
  /// Flushes of files of that name fail from now on.
  void FailFlushesOf(std::string_view name) { unflushable_ = name; }
  /// Of the looks at a file from now on, whether it is there, the one of that number fails.
  void FailAtLook(int number) {
    bad_look_ = number;
    looks_ = 0;
  }
  void Mend() {
    unflushable_.clear();
    room_ = std::numeric_limits<std::size_t>::max();
    first_bad_ = last_bad_ = bad_read_ = bad_look_ = kNever;
  }

  /// Changing operations since the last FailAtOperation(), those that failed included.
  [[nodiscard]] int operations() const { return operations_; }
  /// The operation that failed last: "write DATARES.TMP", "flush", "rename to", "remove", "date",
  /// "make".
  [[nodiscard]] const std::string& last_failed() const { return last_failed_; }
  /// Bytes written so far.
  [[nodiscard]] std::size_t written() const { return written_; }

  /// Such reads since the last FailAtRead().
  [[nodiscard]] int reads() const { return reads_; }
  /// The same of looks.
  [[nodiscard]] int looks() const { return looks_; }

  Outcome Write(const std::filesystem::path& path, std::string bytes) override {
    const bool fails = NextFails("write", path);
    const std::size_t fits = std::min(room_, fails ? bytes.size() / 2 : bytes.size());
    room_ -= fits;
    written_ += fits;
    flushed_.erase(path.filename().string());
    Outcome outcome = inner_.Write(path, bytes.substr(0, fits));
    return fails || fits < bytes.size() ? Full(path) : outcome;
  }
  Outcome Flush(const std::filesystem::path& path) override {
    if (NextFails("flush", path) || path.filename() == unflushable_) return Full(path);
    flushed_.insert(path.filename().string());
    return inner_.Flush(path);
  }
  Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    if (NextFails("rename to", to)) return Full(to);
    flushed_.erase(to.filename().string());
    return inner_.Rename(from, to);
  }
  Outcome Remove(const std::filesystem::path& path) override {
    return NextFails("remove", path) ? Full(path) : inner_.Remove(path);
  }
  Outcome SetModified(const std::filesystem::path& path, std::int64_t moment) override {
    return NextFails("date", path) ? Full(path) : inner_.SetModified(path, moment);
  }
  Outcome MakeFolder(const std::filesystem::path& path) override {
    return NextFails("make", path) ? Full(path) : inner_.MakeFolder(path);
  }
  [[nodiscard]] Result<std::string> Read(const std::filesystem::path& path) const override {
    const bool counts = bad_name_.empty() || path.filename() == bad_name_;
    if (counts && ++reads_ == bad_read_) return FileError{path, "Σφάλμα του δίσκου"};
    return inner_.Read(path);
  }

  [[nodiscard]] Result<std::optional<FileStatus>> Status(
      const std::filesystem::path& path) const override {
    if (++looks_ == bad_look_) return FileError{path, "Σφάλμα του δίσκου"};
    return inner_.Status(path);
  }

  /// The file was written last before it was flushed.
  [[nodiscard]] bool IsFlushed(const std::string& name) const { return flushed_.contains(name); }

 private:
  static constexpr int kNever = std::numeric_limits<int>::max();

  static Outcome Full(const std::filesystem::path& path) {
    return FileError{path, "Ο δίσκος είναι γεμάτος"};
  }
  bool NextFails(std::string_view what, const std::filesystem::path& path) {
    ++operations_;
    const bool fails = operations_ >= first_bad_ && operations_ <= last_bad_;
    if (fails) last_failed_ = std::string(what) + " " + path.filename().string();
    return fails;
  }

  std::string bad_name_;
  std::string unflushable_;
  std::string last_failed_;
  std::set<std::string> flushed_;
  std::size_t room_ = std::numeric_limits<std::size_t>::max();
  std::size_t written_ = 0;
  int first_bad_ = kNever;
  int last_bad_ = kNever;
  int operations_ = 0;
  int bad_read_ = kNever;
  mutable int reads_ = 0;
  int bad_look_ = kNever;
  mutable int looks_ = 0;
};

/// A disk on which some files cannot be read: each is there, and every look at it or its bytes is
/// an error, as on a share that has gone or in a closed folder.
class UnreadableDisk : public ForwardingDisk {
 public:
  using ForwardingDisk::ForwardingDisk;

  /// Files and folders of that name, wherever they are; a file that is renamed stays barred.
  void Bar(std::string_view name) { barred_ = name; }
  void Mend() { barred_.clear(); }

  Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    Outcome renamed = inner_.Rename(from, to);
    if (renamed && IsBarred(from)) barred_ = to.filename().string();
    return renamed;
  }

  [[nodiscard]] Result<std::optional<FileStatus>> Status(
      const std::filesystem::path& path) const override {
    return IsBarred(path) ? Broken(path) : inner_.Status(path);
  }
  [[nodiscard]] Result<std::string> Read(const std::filesystem::path& path) const override {
    return IsBarred(path) ? Broken(path) : inner_.Read(path);
  }
  [[nodiscard]] Result<std::string> ReadHead(const std::filesystem::path& path,
                                             std::size_t length) const override {
    return IsBarred(path) ? Broken(path) : inner_.ReadHead(path, length);
  }
  [[nodiscard]] Result<std::vector<std::string>> List(
      const std::filesystem::path& folder) const override {
    return IsBarred(folder) ? Broken(folder) : inner_.List(folder);
  }

 private:
  static FileError Broken(const std::filesystem::path& path) { return {path, "Σφάλμα του δίσκου"}; }
  [[nodiscard]] bool IsBarred(const std::filesystem::path& path) const {
    return !barred_.empty() && path.filename() == barred_;
  }

  std::string barred_;
};

/// A disk that kills its own process with SIGKILL, or does what is to stand for it, after step
/// `last_step`, counted from 1. A
/// changing operation is one step; a write is two, the first half of its bytes and the whole.
class KillingDisk : public ForwardingDisk {
 public:
  KillingDisk(
      Disk& inner, int last_step,
      std::function<void()> kill = [] { static_cast<void>(std::raise(SIGKILL)); })
      : ForwardingDisk(inner), steps_left_(last_step), kill_(std::move(kill)) {}

  Outcome Write(const std::filesystem::path& path, std::string bytes) override {
    return Step(inner_.Write(path, bytes.substr(0, bytes.size() / 2))) &&
                   Step(inner_.Write(path, bytes))
               ? Outcome(Done{})
               : Outcome(FileError{path, "Σφάλμα του δίσκου"});
  }
  Outcome Flush(const std::filesystem::path& path) override { return Step(inner_.Flush(path)); }
  Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    return Step(inner_.Rename(from, to));
  }
  Outcome Remove(const std::filesystem::path& path) override { return Step(inner_.Remove(path)); }
  Outcome SetModified(const std::filesystem::path& path, std::int64_t moment) override {
    return Step(inner_.SetModified(path, moment));
  }
  Outcome MakeFolder(const std::filesystem::path& path) override {
    return Step(inner_.MakeFolder(path));
  }
  Result<std::unique_ptr<DiskLock>> Lock(const std::filesystem::path& path,
                                         std::chrono::milliseconds patience) override {
    auto lock = inner_.Lock(path, patience);
    static_cast<void>(Step(Done{}));
    return lock;
  }

 private:
  Outcome Step(Outcome outcome) {
    if (--steps_left_ == 0) kill_();
    return outcome;
  }

  int steps_left_;
  std::function<void()> kill_;
};

}  // namespace kalvo

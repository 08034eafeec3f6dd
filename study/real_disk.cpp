#include "study/real_disk.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <system_error>
#include <thread>
#include <utility>

namespace kalvo {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::pair<int, std::string_view>, 18> kReasons = {{
    {ENOENT, "Το αρχείο δεν υπάρχει"},
    {ENOTDIR, "Ο φάκελος δεν υπάρχει"},
    {EACCES, "Δεν επιτρέπεται η πρόσβαση"},
    {EPERM, "Δεν επιτρέπεται η πρόσβαση"},
    {EROFS, "Ο δίσκος είναι μόνον για ανάγνωση"},
    {ENOSPC, "Ο δίσκος είναι γεμάτος"},
    {EDQUOT, "Ο δίσκος είναι γεμάτος"},
    {EFBIG, "Το αρχείο ξεπερνά το επιτρεπτό μέγεθος"},
    {EISDIR, "Είναι φάκελος και όχι αρχείο"},
    {ENOTEMPTY, "Ο φάκελος δεν είναι άδειος"},
    {ENAMETOOLONG, "Το όνομα του αρχείου είναι πολύ μακρύ"},
    {EMFILE, "Είναι ανοικτά πάρα πολλά αρχεία"},
    {EIO, "Σφάλμα του δίσκου"},
    {EINVAL, "Το μέσο δεν δέχεται αυτό το όνομα αρχείου"},
    {EILSEQ, "Το μέσο δεν δέχεται αυτό το όνομα αρχείου"},
    {ENODEV, "Το μέσο δεν υπάρχει πια"},
    {ENXIO, "Το μέσο δεν υπάρχει πια"},
    {ESTALE, "Το μέσο δεν υπάρχει πια"},
}};

FileErrorKind KindOf(int error_number) {
  switch (error_number) {
    case ENOENT:
    case ENOTDIR:
      return FileErrorKind::kMissing;
    case ENAMETOOLONG:
      return FileErrorKind::kNameTooLong;
    case ENOSPC:
    case EDQUOT:
      return FileErrorKind::kFull;
    default:
      return FileErrorKind::kOther;
  }
}

FileError ErrorOf(const fs::path& path, int error_number) {
  return {path, ReasonOf(error_number), KindOf(error_number)};
}

// A file that is written beside another one, to take its place, is told of as that one.
FileError LastError(const fs::path& path) {
  const int error_number = errno;
  const std::string name = path.string();
  if (!name.ends_with(kBesideEnd)) return ErrorOf(path, error_number);
  if (error_number == ENOENT) {
    return {path.parent_path(), "Ο φάκελος δεν υπάρχει", FileErrorKind::kMissing};
  }
  return ErrorOf(name.substr(0, name.size() - std::string_view(kBesideEnd).size()), error_number);
}

// An open file, closed at the end of the scope.
class Descriptor {
 public:
  Descriptor(const fs::path& path, int flags)
      : number_(open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) {
      close(number_);
    }
  }

  [[nodiscard]] int number() const { return number_; }
  [[nodiscard]] bool is_open() const { return number_ >= 0; }

  // Closes now and says whether the last bytes went out.
  bool Close() { return close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

// The user's own file is protected by its mode alone, which binds root too; whether another's may
// be written the system knows.
bool IsWritable(const fs::path& path, const struct stat& found) {
  return (found.st_mode & S_IWUSR) != 0 &&
         (found.st_uid == geteuid() || access(path.c_str(), W_OK) == 0);
}

// Reasons of a medium that has nothing to force for a folder.
bool LacksFolderSync(int error_number) {
  constexpr std::array kLacking = {EINVAL, ENOTSUP, ENOSYS, EROFS, EBADF, EACCES, EPERM};
  return std::find(kLacking.begin(), kLacking.end(), error_number) != kLacking.end();
}

// A file that is locked as long as it is open, and removed by who made or took it over.
class LockFile : public DiskLock {
 public:
  LockFile(Descriptor file, fs::path path) : file_(std::move(file)), path_(std::move(path)) {}
  LockFile(const LockFile&) = delete;
  LockFile& operator=(const LockFile&) = delete;
  // Removed while it is still locked: who waits for it sees that it lost its name.
  ~LockFile() override { unlink(path_.c_str()); }

 private:
  Descriptor file_;
  fs::path path_;
};

bool BearsName(const Descriptor& file, const fs::path& path) {
  struct stat opened {};
  struct stat named {};
  return fstat(file.number(), &opened) == 0 && stat(path.c_str(), &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

// Nothing when another has it. Where there are no locks, or none can be made, it bars nobody.
std::unique_ptr<DiskLock> TryLock(const fs::path& path) {
  Descriptor file(path, O_RDWR | O_CREAT | O_NOFOLLOW);
  const bool own = file.is_open();
  if (!own) {  // another user's can be locked all the same
    file = Descriptor(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
  }
  if (!file.is_open()) {
    return std::make_unique<DiskLock>();
  }
  if (flock(file.number(), LOCK_EX | LOCK_NB) == 0) {
    return BearsName(file, path) ? std::make_unique<LockFile>(std::move(file), path) : nullptr;
  }
  if (errno == EWOULDBLOCK || errno == EINTR) {
    return nullptr;
  }
  if (own) {
    unlink(path.c_str());
  }
  return std::make_unique<DiskLock>();
}

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) {
      continue;
    }
    if (written <= 0) {
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

std::string ReasonOf(int error_number) {
  for (const auto& [number, reason] : kReasons) {
    if (number == error_number) {
      return std::string(reason);
    }
  }
  return "Σφάλμα αρχείου (" + std::to_string(error_number) + ")";
}

Result<std::optional<FileStatus>> RealDisk::Status(const fs::path& path) const {
  struct stat found {};
  if (stat(path.c_str(), &found) != 0) {
    const FileError error = LastError(path);
    return error.IsMissing() ? Result(std::optional<FileStatus>()) : error;
  }
  return std::optional(
      FileStatus{static_cast<std::uint64_t>(found.st_size), S_ISDIR(found.st_mode) != 0,
                 static_cast<std::int64_t>(found.st_mtime), IsWritable(path, found)});
}

Result<std::string> RealDisk::Read(const fs::path& path) const {
  return ReadHead(path, std::numeric_limits<std::size_t>::max());
}

Result<std::string> RealDisk::ReadHead(const fs::path& path, std::size_t length) const {
  const Descriptor file(path, O_RDONLY | O_NONBLOCK);  // a pipe would wait for its writer
  struct stat found {};
  if (!file.is_open() || fstat(file.number(), &found) != 0) {
    return LastError(path);
  }
  if (!S_ISREG(found.st_mode)) {
    return FileError{path, "Δεν είναι κανονικό αρχείο"};
  }
  std::string bytes(std::min(length, static_cast<std::size_t>(found.st_size)), '\0');
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const ssize_t got = read(file.number(), bytes.data() + filled, bytes.size() - filled);
    if (got < 0 && errno == EINTR) {
      continue;
    }
    if (got < 0) {
      return LastError(path);
    }
    if (got == 0) {
      break;
    }
    filled += static_cast<std::size_t>(got);
  }
  bytes.resize(filled);
  return bytes;
}

Outcome RealDisk::Write(const fs::path& path, std::string bytes) {
  Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
  if (!file.is_open() || !WriteAll(file.number(), bytes) || !file.Close()) {
    return LastError(path);
  }
  return Done{};
}

Outcome RealDisk::Flush(const fs::path& path) {
  const Descriptor file(path, O_RDONLY);
  if (file.is_open() && fsync(file.number()) == 0) {
    return Done{};
  }
  const bool lacking = LacksFolderSync(errno);
  const FileError error = LastError(path);
  return lacking && IsFolder(path) ? Outcome(Done{}) : error;
}

// A file that takes the place of another is read and written by whom the other was, where the
// medium and the owner let it.
Outcome RealDisk::Rename(const fs::path& from, const fs::path& to) {
  struct stat replaced {};
  constexpr mode_t kPermissions = 0777;
  if (stat(to.c_str(), &replaced) == 0) {
    static_cast<void>(SetMode(from, replaced.st_mode & kPermissions));
  }
  if (rename(from.c_str(), to.c_str()) != 0) {
    return LastError(to);
  }
  return Done{};
}

bool RealDisk::SetMode(const fs::path& path, unsigned mode) {
  return chmod(path.c_str(), static_cast<mode_t>(mode)) == 0;
}

Outcome RealDisk::Remove(const fs::path& path) {
  if (unlink(path.c_str()) != 0 && (errno != EISDIR || rmdir(path.c_str()) != 0)) {
    return LastError(path);
  }
  return Done{};
}

Outcome RealDisk::SetModified(const fs::path& path, std::int64_t moment) {
  const std::array<timespec, 2> times = {timespec{0, UTIME_NOW},
                                         timespec{static_cast<time_t>(moment), 0}};
  if (utimensat(AT_FDCWD, path.c_str(), times.data(), 0) != 0) {
    return LastError(path);
  }
  return Done{};
}

Outcome RealDisk::MakeFolder(const fs::path& path) {
  std::error_code error;
  fs::create_directories(path, error);
  if (error) {
    return ErrorOf(path, error.value());
  }
  return Done{};
}

Result<std::vector<std::string>> RealDisk::List(const fs::path& folder) const {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    names.push_back(at->path().filename().string());
  }
  if (error.value() == ENOENT) {
    return FileError{folder, "Ο φάκελος δεν υπάρχει", FileErrorKind::kMissing};
  }
  if (error) {
    return ErrorOf(folder, error.value());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// Step by step, since the end need not be there.
fs::path RealDisk::Resolve(const fs::path& path) const {
  constexpr int kMostLinks = 40;
  std::error_code error;
  fs::path end = path;
  for (int links = 0; fs::is_symlink(end, error) && links < kMostLinks; ++links) {
    end = end.parent_path() / fs::read_symlink(end, error);
  }
  if (end != path) {
    end = fs::weakly_canonical(end, error);
  }
  return error ? path : end;
}

bool RealDisk::IsSamePlace(const fs::path& a, const fs::path& b) const {
  std::error_code error;
  return fs::equivalent(a, b, error);
}

Result<std::unique_ptr<DiskLock>> RealDisk::Lock(const fs::path& path,
                                                 std::chrono::milliseconds patience) {
  constexpr std::chrono::milliseconds kPause{10};
  const auto end = std::chrono::steady_clock::now() + patience;
  for (;;) {
    if (auto lock = TryLock(path)) {
      return lock;
    }
    if (std::chrono::steady_clock::now() >= end) {
      return FileError{path, "Το χρησιμοποιεί άλλο πρόγραμμα", FileErrorKind::kBusy};
    }
    std::this_thread::sleep_for(kPause);
  }
}

}  // namespace kalvo

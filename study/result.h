#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <variant>

namespace kalvo {

/// What a caller may have to tell apart among errors of files.
enum class FileErrorKind {
  kOther,
  kMissing,      ///< the file is surely not there
  kNameTooLong,  ///< no file can bear that name, so it is not there either
  kFull,         ///< the disk, or the user's share of it, has no room
  kBusy          ///< another program is at it
};

/// Why the world said no: the file concerned and the reason, in Greek, ready to be shown.
struct FileError {
  std::filesystem::path file;
  std::string reason;
  FileErrorKind kind = FileErrorKind::kOther;

  [[nodiscard]] bool IsMissing() const {
    return kind == FileErrorKind::kMissing || kind == FileErrorKind::kNameTooLong;
  }

  /// "reason : file", one line; the reason alone when there is no file to name.
  [[nodiscard]] std::string Line() const {
    return file.empty() ? reason : reason + " : " + file.string();
  }
};

/// A value, or the error that kept it from coming about. Nobody may drop it unseen.
template <typename T>
class [[nodiscard]] Result {
 public:
  Result(T value) : content_(std::in_place_index<0>, std::move(value)) {}
  Result(FileError error) : content_(std::in_place_index<1>, std::move(error)) {}

  [[nodiscard]] bool ok() const { return content_.index() == 0; }
  explicit operator bool() const { return ok(); }

  [[nodiscard]] const T& value() const& { return std::get<0>(content_); }
  [[nodiscard]] T& value() & { return std::get<0>(content_); }
  [[nodiscard]] T&& value() && { return std::get<0>(std::move(content_)); }
  [[nodiscard]] const FileError& error() const { return std::get<1>(content_); }

  const T& operator*() const& { return value(); }
  T& operator*() & { return value(); }
  T operator*() && { return std::get<0>(std::move(content_)); }
  T* operator->() { return &value(); }
  const T* operator->() const { return &value(); }

 private:
  std::variant<T, FileError> content_;
};

/// Nothing to hand back but success.
struct Done {};
using Outcome = Result<Done>;

}  // namespace kalvo

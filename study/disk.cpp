#include "study/disk.h"

#include "study/letter_case.h"
#include "study/unicode_form.h"

namespace kalvo {

Result<std::string> Disk::ReadHead(const std::filesystem::path& path, std::size_t length) const {
  Result<std::string> bytes = Read(path);
  if (bytes && bytes->size() > length) {
    bytes.value().resize(length);
  }
  return bytes;
}

std::filesystem::path Disk::Resolve(const std::filesystem::path& path) const { return path; }

Outcome Disk::SetModified(const std::filesystem::path& /*path*/, std::int64_t /*moment*/) {
  return Done{};
}

bool Disk::IsSamePlace(const std::filesystem::path& a, const std::filesystem::path& b) const {
  const auto end = [this](const std::filesystem::path& path) {
    return (Resolve(path) / "").lexically_normal();
  };
  return end(a) == end(b);
}

Result<std::unique_ptr<DiskLock>> Disk::Lock(const std::filesystem::path& /*path*/,
                                             std::chrono::milliseconds /*patience*/) {
  return std::make_unique<DiskLock>();
}

bool Disk::Exists(const std::filesystem::path& path) const {
  const auto status = Status(path);
  return !status || status->has_value();
}

bool Disk::IsFolder(const std::filesystem::path& path) const {
  const auto status = Status(path);
  return status && *status && (*status)->is_folder;
}

Outcome ReplaceFile(Disk& disk, const std::filesystem::path& path, std::string bytes) {
  std::filesystem::path beside = path;
  beside += kBesideEnd;
  if (Outcome written = disk.Write(beside, std::move(bytes)); !written) {
    static_cast<void>(disk.Remove(beside));
    return written;
  }
  Outcome renamed = disk.Rename(beside, path);
  if (!renamed) {
    static_cast<void>(disk.Remove(beside));
  }
  return renamed;
}

Result<std::optional<std::string>> FindIgnoringCase(const Disk& disk,
                                                    const std::filesystem::path& folder,
                                                    std::string_view name) {
  auto entries = disk.List(folder);
  if (!entries && !entries.error().IsMissing()) {
    return entries.error();
  }
  const std::string wanted = LowerCase(ComposedForm(name));
  for (std::string& entry : entries ? *entries : std::vector<std::string>{}) {
    if (LowerCase(ComposedForm(entry)) == wanted) {
      return std::optional(std::move(entry));
    }
  }
  return std::optional<std::string>();
}

}  // namespace kalvo

#include "platform/drives/mounted_volumes.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <set>

#include "platform/drives/detached_start.h"
#include "platform/drives/mount_table.h"
#include "study/real_disk.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

// Below these a device serves the system, wherever else it is mounted.
constexpr std::array kSystemPlaces = {"/",    "/boot", "/usr", "/var",      "/home",
                                      "/opt", "/srv",  "/nix", "/run/live", "/lib/live"};

bool IsSystemPlace(std::string_view place) {
  return std::ranges::any_of(kSystemPlaces, [place](std::string_view known) {
    return place == known || (known != "/" && place.starts_with(std::string(known) + "/"));
  });
}

// A file of the system, which has no length before it is read.
std::string TextOf(const fs::path& path) {
  std::string text;
  if (FILE* file = fopen(path.c_str(), "re"); file != nullptr) {
    std::array<char, 4096> part{};
    while (const std::size_t got = fread(part.data(), 1, part.size(), file)) {
      text.append(part.data(), got);
    }
    fclose(file);
  }
  return text;
}

// A medium that is taken out: the device says so, is on USB, or is a card. Of a partition the whole
// device, which is above it, says so.
bool IsRemovable(const fs::path& devices, const std::string& number) {
  const fs::path device = devices / number;
  std::error_code error;
  const fs::path end = fs::canonical(device, error);
  if (error) return false;
  for (const fs::path& whole : {end, end.parent_path()}) {
    if (TextOf(whole / "removable").starts_with('1')) return true;
    if (TextOf(whole / "device" / "type").starts_with("SD")) return true;
  }
  return end.string().find("/usb") != std::string::npos;
}

bool CanWrite(const fs::path& folder) { return access(folder.c_str(), W_OK | X_OK) == 0; }

std::string HomeFolder(const std::string& given) {
  if (!given.empty()) return given;
  const char* home = std::getenv("HOME");
  return home != nullptr && *home == '/' ? home : "/";
}

std::set<std::string> SystemDevices(const std::vector<Mount>& mounts) {
  std::set<std::string> devices;
  for (const Mount& mount : mounts) {
    if (IsSystemPlace(mount.place)) devices.insert(mount.device);
  }
  return devices;
}

// Several get the names of the folders that they are mounted on.
void NameRemovable(std::vector<Volume>& volumes) {
  constexpr const char* kName = "Αφαιρούμενο μέσο";
  for (Volume& volume : volumes) {
    const std::string called = volume.place.filename().string();
    volume.name = volumes.size() == 1 ? kName : called + " : " + kName;
  }
}

}  // namespace

std::vector<Volume> MountedVolumes::All() const {
  std::vector<Volume> volumes;
  const std::vector<Mount> mounts = ReadMounts(TextOf(sources_.mounts));
  const std::set<std::string> of_system = SystemDevices(mounts);
  std::set<std::string> seen;
  for (const Mount& mount : mounts) {
    if (IsSystemPlace(mount.place) || !IsRemovable(sources_.devices, mount.number) ||
        !seen.insert(mount.device).second) {
      continue;
    }
    volumes.push_back({.kind = VolumeKind::kRemovable,
                       .name = {},
                       .place = mount.place,
                       .device = mount.device,
                       .writable = mount.writable && CanWrite(mount.place),
                       .holds_system = of_system.contains(mount.device)});
  }
  NameRemovable(volumes);
  const std::string home = HomeFolder(sources_.home);
  volumes.push_back({.kind = VolumeKind::kHome,
                     .name = "Φάκελος χρήστη",
                     .place = home,
                     .device = {},
                     .writable = CanWrite(home)});
  volumes.push_back({.kind = VolumeKind::kSystem,
                     .name = "Όλοι οι φάκελοι",
                     .place = "/",
                     .device = {},
                     .writable = CanWrite("/")});
  return volumes;
}

Result<MediumRoom> MountedVolumes::RoomAt(const fs::path& folder) const {
  struct statvfs found {};
  if (statvfs(folder.c_str(), &found) != 0) {
    const bool missing = errno == ENOENT || errno == ENOTDIR;
    return FileError{folder, missing ? "Ο φάκελος δεν υπάρχει" : ReasonOf(errno),
                     missing ? FileErrorKind::kMissing : FileErrorKind::kOther};
  }
  struct stat place {};
  if (stat(folder.c_str(), &place) != 0) {
    return FileError{folder, ReasonOf(errno)};
  }
  const std::uint64_t block = found.f_frsize > 0 ? found.f_frsize : found.f_bsize;
  return MediumRoom{.capacity = found.f_blocks * block,
                    .free = found.f_bavail * block,
                    .block = block,
                    .writable = (found.f_flag & ST_RDONLY) == 0 && CanWrite(folder),
                    .medium = place.st_dev};
}

bool MountedVolumes::Holds(const Volume& volume, const fs::path& folder) const {
  struct stat medium {};
  struct stat place {};
  return stat(volume.place.c_str(), &medium) == 0 && stat(folder.c_str(), &place) == 0 &&
         medium.st_dev == place.st_dev;
}

Outcome MountedVolumes::OpenFormatTool(const Volume& volume) {
  const fs::path tool = FindProgram(sources_.format_tool);
  if (tool.empty()) {
    return FileError{sources_.format_tool,
                     "Δεν υπάρχει το πρόγραμμα που διαμορφώνει (format) δίσκους"};
  }
  return StartDetached(tool, {"--block-device", volume.device, "--format-device"});
}

}  // namespace kalvo

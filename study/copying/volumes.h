#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "study/result.h"

namespace kalvo {

/// A place that files are kept in, as the user knows it.
enum class VolumeKind { kRemovable, kHome, kSystem };

struct Volume {
  VolumeKind kind = VolumeKind::kSystem;
  std::string name{};             ///< as the user reads it
  std::filesystem::path place{};  ///< its topmost folder
  std::string device{};           ///< of a removable one: "/dev/sdb1"
  bool writable = true;
  bool holds_system = false;  ///< its device is a part of the running system as well
};

/// What the medium of a folder can hold, in bytes.
struct MediumRoom {
  std::uint64_t capacity = 0;  ///< 0: the medium does not say
  std::uint64_t free = 0;      ///< for this user
  std::uint64_t block = 1;     ///< files take whole blocks
  bool writable = true;        ///< files can be made in the folder
  std::uint64_t medium = 0;    ///< another number: another medium
};

/// The drives of the machine.
class Volumes {
 public:
  virtual ~Volumes() = default;

  /// Removable media that are mounted, in the order in which they came, the user's home folder, and
  /// the whole tree of folders.
  [[nodiscard]] virtual std::vector<Volume> All() const = 0;
  /// Error: the folder is not there, or its medium gives no answer.
  [[nodiscard]] virtual Result<MediumRoom> RoomAt(const std::filesystem::path& folder) const = 0;
  /// Whether the folder is on the volume's medium.
  [[nodiscard]] virtual bool Holds(const Volume& volume,
                                   const std::filesystem::path& folder) const = 0;
  /// Hands the device to the desktop's own disk tool, which asks before it formats. Error: there is
  /// no such tool, or it does not start.
  virtual Outcome OpenFormatTool(const Volume& volume) = 0;
};

}  // namespace kalvo

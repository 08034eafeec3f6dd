#pragma once

#include "study/copying/volumes.h"

namespace kalvo {

/// Where the system describes itself.
struct MountSources {
  std::filesystem::path mounts = "/proc/self/mountinfo";
  std::filesystem::path devices = "/sys/dev/block";
  std::string home{};                       ///< empty: $HOME
  std::string format_tool = "gnome-disks";  ///< a name looked for in $PATH, or a path
};

/// The drives that Linux has mounted. What describes them are files of the system, which a test
/// puts elsewhere.
class MountedVolumes : public Volumes {
 public:
  explicit MountedVolumes(MountSources sources = {}) : sources_(std::move(sources)) {}

  [[nodiscard]] std::vector<Volume> All() const override;
  [[nodiscard]] Result<MediumRoom> RoomAt(const std::filesystem::path& folder) const override;
  [[nodiscard]] bool Holds(const Volume& volume,
                           const std::filesystem::path& folder) const override;
  Outcome OpenFormatTool(const Volume& volume) override;

 private:
  MountSources sources_;
};

}  // namespace kalvo

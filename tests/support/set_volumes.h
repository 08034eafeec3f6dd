#pragma once

#include <optional>
#include <string>
#include <vector>

#include "study/copying/volumes.h"

namespace kalvo {

/// Drives as a test sets them.
class SetVolumes : public Volumes {
 public:
  [[nodiscard]] std::vector<Volume> All() const override { return volumes; }
  [[nodiscard]] Result<MediumRoom> RoomAt(const std::filesystem::path& /*folder*/) const override {
    if (refusal) return *refusal;
    return room;
  }
  [[nodiscard]] bool Holds(const Volume& volume,
                           const std::filesystem::path& folder) const override {
    return (folder.string() + "/").starts_with(volume.place.string() + "/");
  }
  Outcome OpenFormatTool(const Volume& volume) override {
    if (no_tool) return *no_tool;
    formatted.push_back(volume.device);
    return Done{};
  }

  std::vector<Volume> volumes;
  MediumRoom room{.capacity = 1'000'000'000, .free = 900'000'000, .block = 4096, .writable = true};
  std::optional<FileError> refusal;
  std::optional<FileError> no_tool;
  std::vector<std::string> formatted;
};

}  // namespace kalvo

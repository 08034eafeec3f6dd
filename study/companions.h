#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "study/disk.h"
#include "study/family_save.h"

namespace kalvo {

/// The companion with `extension` of the study whose main file is `main`, as its folder spells it.
/// None when there is none, the kind has none (no extension), or it is another study's: one whose
/// main file spells the base as it does.
std::optional<std::filesystem::path> CompanionOf(const Disk& disk,
                                                 const std::filesystem::path& main,
                                                 std::string_view extension);

/// The path under which a save writes a study's file: one of the same base that is there in
/// whatever case its extension is written, else `path` itself.
std::filesystem::path OwnFile(const Disk& disk, const std::filesystem::path& path);

/// The path under which a save writes that companion.
std::filesystem::path CompanionTarget(const Disk& disk, const std::filesystem::path& main,
                                      std::string_view extension);

/// A number that differs with what a study's files hold, companions included. The bytes of those in
/// `known` are taken from there; one that cannot be read is like none that can.
std::uint64_t FamilyDigest(const Disk& disk, const std::filesystem::path& main,
                           const std::vector<FamilyFile>& known = {});

}  // namespace kalvo

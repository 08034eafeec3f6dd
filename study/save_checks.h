#pragma once

#include <filesystem>
#include <optional>

#include "study/workbench.h"

namespace kalvo {

/// Whether the files of the open study have become others than were loaded or saved last, its
/// companions too. A main file that is gone is nothing that a save would replace.
bool ChangedOnDisk(const Workbench& bench);

/// A file that a save as `main` would replace although it is protected from being written.
std::optional<std::filesystem::path> ProtectedTarget(const Workspace& workspace,
                                                     const std::filesystem::path& main);

/// A companion that a save as `main` would change although it is also that of the study of the
/// other kind which bears the same name.
std::optional<std::filesystem::path> TwinsCompanion(const Workspace& workspace,
                                                    const std::filesystem::path& main);

}  // namespace kalvo

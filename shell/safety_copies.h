#pragma once

#include <filesystem>

#include "study/workbench.h"

namespace kalvo {

/// Folder of the safety copies below that of the studies, and how many are kept.
constexpr const char* kSafetyFolder = "ASFALEIA";
constexpr std::size_t kSafetyCopies = 10;

/// True when the rows in the work files stand, byte by byte, in the file at `study path`; without
/// rows there is nothing to lose, and it is true too.
bool RowsAreSaved(const Workbench& bench);

/// Copies the study in the work files into a dated folder of `ASFALEIA` below `data_folder` when
/// its rows are in no saved file, or a sheet stands there that may not be in the rows. The copy
/// opens as any study does; what no study's file is keeps its name. The newest kSafetyCopies are
/// kept. Nothing to keep: success. Error: the copy cannot be made.
Outcome KeepSafetyCopy(Workbench& bench, const std::filesystem::path& data_folder);

/// The same whatever is saved elsewhere; files are copied byte by byte, whole records or not.
Outcome KeepSafetyCopyAnyway(Workbench& bench, const std::filesystem::path& data_folder);

}  // namespace kalvo

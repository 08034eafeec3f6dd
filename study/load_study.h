#pragma once

#include <string_view>
#include <vector>

#include "study/workbench.h"

namespace kalvo {

/// Whether a loaded study is put on the recent list; one opened from there is not.
enum class RecentList { kAdd, kLeave };

/// Rows of a main file if it can be loaded: whole records, at least one, numbered by their places,
/// finite numbers, of the study's kind (when both or neither kind is marked it counts as that), its
/// pipe system in the list and on disk. `file` is named in errors.
Result<std::vector<SectionRow>> ProveLoadable(const Workbench& bench,
                                              const std::filesystem::path& file,
                                              std::string_view bytes);

/// Loads `study path` (in recovery: what stands in the work files) into work files and state. The
/// caller has seen to unsaved changes: with the flag set nothing happens. When the study cannot be
/// loaded a box says why and `CalcStatus` is -1. The study and its companions are read and proved
/// before anything is touched: until then the open study stays whole and `study path` goes back to
/// `last study path`, as after "Escape". A failure past that point resets the study. A recovery
/// that fails deletes nothing: the caller copies the work files to safety, then resets.
void LoadStudy(Workbench& bench, RecentList recent = RecentList::kAdd);

}  // namespace kalvo

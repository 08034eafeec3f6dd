#pragma once

#include <functional>

#include "study/workbench.h"

namespace kalvo {

/// Whether a loaded study is put on the recent list; one opened from there is not.
enum class RecentList { kAdd, kLeave };

/// Loads `study path` (in recovery: what is in the work files) into work files and state; true when
/// it did. The caller has seen to unsaved changes: with the flag set nothing happens, as after
/// "Escape". Error: the study cannot be loaded. The study and its companions are read and proved
/// before anything is touched: until then the open study stays whole and `study path` goes back to
/// `last study path`. A failure past that point resets the study. A recovery that fails deletes
/// nothing: the caller copies the work files to safety, then resets.
/// `may_replace` is asked once the study is proved, before anything is touched, with `study path`
/// still that of the open study (`last study path`); with "false" that one stays.
Result<bool> LoadStudy(Workbench& bench, RecentList recent = RecentList::kAdd,
                       const std::function<bool()>& may_replace = {});

}  // namespace kalvo

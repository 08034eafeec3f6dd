#pragma once

#include <string_view>

#include "study/workbench.h"

namespace kalvo {

/// Gives the study a title (UTF-8, cut to what a row holds). With rows it is written into each and
/// counts as an unsaved change. Error: the rows cannot be read or written; the title stays.
Outcome StoreTitle(Workbench& bench, std::string_view title);

}  // namespace kalvo

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "study/numeric_text.h"
#include "study/workbench.h"

namespace kalvo {

/// Whether the user's thousands sign parts thousands in pasted numbers: asked where they do not
/// tell (IsDoubtful()), else false. Nothing when the user breaks off.
std::optional<bool> AskWhatParts(Workbench& bench, const std::string& title,
                                 const std::vector<std::string>& numbers, Separators separators);

}  // namespace kalvo

#pragma once

#include <string>
#include <string_view>

namespace kalvo {

/// A file's name, without extension, made from a study's title: without what file systems and
/// masks keep for themselves, and short enough for the extension and for what a save adds to it.
/// Empty when nothing of the title can stand in a name.
std::string ProposedName(std::string_view title);

}  // namespace kalvo

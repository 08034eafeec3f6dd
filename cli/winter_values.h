#pragma once

#include <filesystem>
#include <vector>

#include "engine/winter.h"
#include "study/disk.h"

namespace kalvo {

/// Winter values from a table: a heading line with the columns section, flow (l/h), drop (mm w.g.)
/// and optionally length (m), by these or their Greek names in any order, and a line for every
/// emitter. Cells are parted by ";", tabs or ",", and may stand in quotes; decimals are marked by
/// "." or, where "," parts no cells, ",". Empty lines and lines that begin with "#" are passed
/// over. `summer`: the emitters of the study, whose order and lengths the result keeps. Error:
/// names the line and what is wrong with it, or the emitter that is missing.
Result<std::vector<WinterLine>> ReadWinterValues(const Disk& disk,
                                                 const std::filesystem::path& path,
                                                 std::vector<WinterLine> summer);

}  // namespace kalvo

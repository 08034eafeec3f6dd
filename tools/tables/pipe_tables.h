#pragma once

#include <filesystem>
#include <string>

namespace kalvo {

/// The delivered pipe systems of a library folder: each with its material, roughness and sizes.
/// Throws std::runtime_error when one cannot be read.
std::string PipeTables(const std::filesystem::path& library);

}  // namespace kalvo

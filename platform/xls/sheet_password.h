#pragma once

#include <cstdint>
#include <string_view>

namespace kalvo {

/// What a sheet keeps of its password; 0 for an empty one. Of a long one the first 15 characters
/// count, those that code page 1253 lacks as "?".
/// Source: [MS-OFFCRYPTO], Binary Document Password Verifier Derivation Method 1.
std::uint16_t SheetPasswordHash(std::string_view password);

}  // namespace kalvo

#pragma once

#include <cstdint>
#include <string_view>

namespace kalvo {

/// What a sheet keeps of its password; 0 for an empty one. Of a long one the first 15 characters
/// count, those that code page 1253 lacks as "?".
/// Source: ECMA-376 Part 4 (transitional), 14.7.1, legacy password hash; [MS-OFFCRYPTO] 2.3.7.1.
std::uint16_t SheetPasswordHash(std::string_view password);

}  // namespace kalvo

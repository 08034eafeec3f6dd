#pragma once

#include <cstdint>
#include <string_view>

namespace kalvo {

/// A number that tells contents apart, not a protection against intent.
/// Source: Fowler, Noll, Vo, FNV-1a of 64 bits (IETF draft-eastlake-fnv).
constexpr std::uint64_t Digest(std::string_view bytes) {
  std::uint64_t digest = 0xCBF29CE484222325U;
  for (const char byte : bytes) {
    digest = (digest ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  }
  return digest;
}

}  // namespace kalvo

#pragma once

#include <cstdint>
#include <string>

namespace kalvo {

/// A moment (seconds since 1970, UTC) in local time: dd/MM/yyyy.
std::string DateText(std::int64_t moment);

/// The same as HH:mm:ss.
std::string ClockText(std::int64_t moment);

/// The same as yyyy-MM-dd_HHmmss, for names: later moments stand behind earlier ones.
std::string StampText(std::int64_t moment);

}  // namespace kalvo

#include "study/date_text.h"

#include <array>
#include <ctime>

namespace kalvo {

namespace {

template <std::size_t N>
std::string TimeText(std::int64_t moment, const char (&format)[N]) {
  const auto at = static_cast<std::time_t>(moment);
  std::tm local{};
  localtime_r(&at, &local);
  std::array<char, 32> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), format, &local);
  return {text.data(), length};
}

}  // namespace

std::string DateText(std::int64_t moment) { return TimeText(moment, "%d/%m/%Y"); }

std::string ClockText(std::int64_t moment) { return TimeText(moment, "%H:%M:%S"); }

std::string StampText(std::int64_t moment) { return TimeText(moment, "%Y-%m-%d_%H%M%S"); }

}  // namespace kalvo

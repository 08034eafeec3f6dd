#pragma once

#include <cstdint>
#include <ctime>

namespace kalvo {

/// Waiting as the program does it: the window serves events meanwhile, tests and the command line
/// return at once.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual void Pause(double seconds) = 0;
  /// The moment, in seconds since 1970, UTC.
  [[nodiscard]] virtual std::int64_t Now() const { return std::time(nullptr); }
};

/// A clock that never waits.
class NoWait : public Clock {
 public:
  void Pause(double /*seconds*/) override {}
};

}  // namespace kalvo

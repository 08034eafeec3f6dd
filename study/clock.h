#pragma once

namespace kalvo {

/// Waiting as the program does it: the window serves events meanwhile, tests and the command line
/// return at once.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual void Pause(double seconds) = 0;
};

/// A clock that never waits.
class NoWait : public Clock {
 public:
  void Pause(double /*seconds*/) override {}
};

}  // namespace kalvo

#pragma once

#include <cstdlib>
#include <random>

namespace kalvo {

/// Actions of a walk: `usual`, or more by KALVO_WALK_STEPS, as for a night under the sanitizers.
inline int WalkSteps(int usual) {
  const char* steps = std::getenv("KALVO_WALK_STEPS");
  return steps == nullptr ? usual : std::atoi(steps);
}

/// Numbers by chance, the same in every run.
class Dice {
 public:
  explicit Dice(unsigned seed) : random_(seed) {}

  /// From 0 to `n` - 1.
  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  /// One of a container.
  template <typename Container>
  const auto& Of(const Container& container) {
    return container[static_cast<std::size_t>(Below(static_cast<int>(std::size(container))))];
  }

 private:
  std::mt19937 random_;
};

}  // namespace kalvo

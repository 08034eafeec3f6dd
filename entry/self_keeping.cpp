#include "entry/self_keeping.h"

#include <utility>

namespace kalvo {
namespace {

// Quiet seconds after which what was kept is forced onto the medium.
constexpr double kQuietSeconds = 5;
// After the sheet could not be kept.
constexpr std::int64_t kSecondsToNextTry = 5;

}  // namespace

std::optional<SelfKeeping::Telling> SelfKeeping::Keep(const SectionSitting::Pending& pending,
                                                      bool flush) {
  const Outcome kept = sitting_.Keep(pending, flush);
  if (kept) return std::nullopt;
  return Telling{"Το φύλλο ΔΕΝ φυλάσσεται : " + kept.error().Line(), true};
}

std::optional<SelfKeeping::Telling> SelfKeeping::KeepNow(const SectionSitting::Pending& pending) {
  return Keep(pending, true);
}

std::optional<SelfKeeping::Telling> SelfKeeping::Idle(const SectionSitting::Pending& pending,
                                                      double quiet_seconds) {
  const bool flush = quiet_seconds >= kQuietSeconds;
  const bool wants = sitting_.WantsKeeping(pending) || (flush && sitting_.WantsFlush());
  if (!wants || bench_.workspace.Now() < next_try_) return std::nullopt;
  auto told = Keep(pending, flush);
  const bool had_failed = std::exchange(failed_, told.has_value());
  next_try_ = failed_ ? bench_.workspace.Now() + kSecondsToNextTry : 0;
  if (had_failed && !failed_) return Telling{"Το φύλλο φυλάσσεται και πάλι"};
  return told;
}

}  // namespace kalvo

#include "entry/sections/self_keeping.h"

namespace kalvo {

std::optional<SelfKeeping::Telling> SelfKeeping::KeepNow(const SectionSitting::Pending& pending) {
  const Outcome kept = sitting_.Keep(pending, true);
  if (kept) return std::nullopt;
  return Failure(kept.error());
}

SelfKeeping::Telling SelfKeeping::Failure(const FileError& error) {
  return {"Το φύλλο ΔΕΝ φυλάσσεται : " + error.Line(), true};
}

std::optional<SelfKeeping::Telling> SelfKeeping::Idle(const SectionSitting::Pending& pending,
                                                      double quiet_seconds) {
  const std::int64_t now = bench_.workspace.Now();
  const auto flush =
      times_.Due(quiet_seconds, sitting_.WantsKeeping(pending), sitting_.WantsFlush(), now);
  if (!flush) return std::nullopt;
  const Outcome kept = sitting_.Keep(pending, *flush);
  switch (times_.Note(kept.ok(), now)) {
    case KeepingTimes::News::kFailed:
      return Failure(kept.error());
    case KeepingTimes::News::kKeptAgain:
      return Telling{"Το φύλλο φυλάσσεται και πάλι"};
    case KeepingTimes::News::kNone:
      break;
  }
  return std::nullopt;
}

}  // namespace kalvo

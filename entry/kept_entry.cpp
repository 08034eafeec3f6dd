#include "entry/kept_entry.h"

#include <utility>

namespace kalvo {
namespace {

// Quiet seconds after which what was kept is forced onto the medium.
constexpr double kQuietSeconds = 5;
constexpr std::int64_t kSecondsToNextTry = 5;

}  // namespace

Outcome KeptEntry::Keep(bool changed, bool flush, const Write& write, const Flush& flush_file) {
  if (changed) {
    const Result<bool> written = write();
    if (!written) return written.error();
    flushed_ = !*written;
  }
  if (!flush || flushed_) return Done{};
  Outcome flushed = flush_file();
  flushed_ = flushed.ok();
  return flushed;
}

std::optional<bool> KeepingTimes::Due(double quiet_seconds, bool changed, bool wants_flush,
                                      std::int64_t now) const {
  const bool flush = quiet_seconds >= kQuietSeconds;
  if (now < next_try_ || !(changed || (flush && wants_flush))) return std::nullopt;
  return flush;
}

KeepingTimes::News KeepingTimes::Note(bool kept, std::int64_t now) {
  const bool had_failed = std::exchange(failed_, !kept);
  next_try_ = kept ? 0 : now + kSecondsToNextTry;
  if (failed_) return News::kFailed;
  return had_failed ? News::kKeptAgain : News::kNone;
}

}  // namespace kalvo

#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "study/result.h"

namespace kalvo {

/// What is typed keeps itself in a work file as long as it is nowhere else. This class knows
/// whether the file is on the medium.
class KeptEntry {
 public:
  /// Writes the entry, or deletes the file of one that is elsewhere, too. Gives whether there is a
  /// file now.
  using Write = std::function<Result<bool>()>;
  using Flush = std::function<Outcome()>;

  /// Writes an entry that has changed since it was kept; with `flush` onto the medium.
  Outcome Keep(bool changed, bool flush, const Write& write, const Flush& flush_file);
  [[nodiscard]] bool WantsFlush() const { return !flushed_; }

 private:
  bool flushed_ = true;
};

/// When a form keeps its entry: within a second of a change, on the medium after five quiet
/// seconds, and some seconds after it could not once more.
class KeepingTimes {
 public:
  /// Whether it shall be kept at this moment, and then whether onto the medium.
  [[nodiscard]] std::optional<bool> Due(double quiet_seconds, bool changed, bool wants_flush,
                                        std::int64_t now) const;

  enum class News { kNone, kFailed, kKeptAgain };
  /// Takes what came of it.
  News Note(bool kept, std::int64_t now);
  /// It could not be kept the last time.
  [[nodiscard]] bool failed() const { return failed_; }

 private:
  bool failed_ = false;
  std::int64_t next_try_ = 0;  ///< the moment before which it is not tried again
};

}  // namespace kalvo

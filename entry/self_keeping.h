#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "entry/section_sitting.h"

namespace kalvo {

/// When a sitting keeps itself: within a second of a change, on the medium after some quiet
/// seconds, and again after a while where it could not.
class SelfKeeping {
 public:
  SelfKeeping(SectionSitting& sitting, const Workbench& bench) : sitting_(sitting), bench_(bench) {}

  /// What the user is told; `alarm`: what is typed is in memory only.
  struct Telling {
    std::string text;
    bool alarm = false;
  };

  /// Called several times a second.
  std::optional<Telling> Idle(const SectionSitting::Pending& pending, double quiet_seconds);
  /// Keeps at once, on the medium; nothing: it is kept.
  std::optional<Telling> KeepNow(const SectionSitting::Pending& pending);
  /// The last attempt failed.
  [[nodiscard]] bool failed() const { return failed_; }

 private:
  std::optional<Telling> Keep(const SectionSitting::Pending& pending, bool flush);

  SectionSitting& sitting_;
  const Workbench& bench_;
  bool failed_ = false;
  std::int64_t next_try_ = 0;  ///< the moment before which it is not tried again
};

}  // namespace kalvo

#pragma once

#include <optional>
#include <string>

#include "entry/sections/section_sitting.h"

namespace kalvo {

/// A sitting of section entry that keeps itself, and what its user is told of it.
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
  [[nodiscard]] bool failed() const { return times_.failed(); }

 private:
  static Telling Failure(const FileError& error);

  SectionSitting& sitting_;
  const Workbench& bench_;
  KeepingTimes times_;
};

}  // namespace kalvo

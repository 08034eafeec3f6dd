#pragma once

#include <filesystem>

#include "study/clock.h"
#include "study/disk.h"
#include "study/fault_note.h"

namespace kalvo {

/// Name of the log of faults in the state folder.
constexpr const char* kFaultFile = "Faults.log";

/// The log of faults: a line each, the oldest first. It keeps the newest lines within `kMostBytes`.
/// A log that cannot be read is left as it is; that it cannot be written is no error.
class FaultFile : public FaultLog {
 public:
  static constexpr std::size_t kMostBytes = 65'536;

  FaultFile(Disk& disk, const Clock& clock, const std::filesystem::path& state_folder)
      : disk_(disk), clock_(clock), folder_(state_folder) {}

  void Note(const FaultNote& note) override;

 private:
  Disk& disk_;
  const Clock& clock_;
  std::filesystem::path folder_;
};

}  // namespace kalvo

#pragma once

#include <vector>

#include "study/copying/copy_plan.h"
#include "study/copying/volumes.h"

namespace kalvo {

/// What a copying takes of its medium, in bytes of whole blocks.
struct CopyNeed {
  std::uint64_t total = 0;  ///< of all files that are copied
  /// The most that is taken at one time beyond what is taken now: a study needs its new size while
  /// its old one is still there.
  std::uint64_t peak = 0;
};

/// A length in bytes as whole blocks take it.
std::uint64_t InBlocks(std::uint64_t length, std::uint64_t block);

/// The need of copies that are made one after the other.
CopyNeed NeedOf(const std::vector<CopyPlan>& plans, std::uint64_t block);

/// Whether the medium has the room. kTooSmall: it never has; kTooFull: it has not at the moment.
/// One that does not say its capacity is tried.
enum class RoomEnd { kEnough, kTooSmall, kTooFull };
RoomEnd Fits(const CopyNeed& need, const MediumRoom& room);

}  // namespace kalvo

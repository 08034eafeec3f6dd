#include "study/copying/copy_room.h"

#include <algorithm>

namespace kalvo {

std::uint64_t InBlocks(std::uint64_t length, std::uint64_t block) {
  const std::uint64_t size = std::max<std::uint64_t>(block, 1);
  return (length / size + (length % size == 0 ? 0 : 1)) * size;
}

CopyNeed NeedOf(const std::vector<CopyPlan>& plans, std::uint64_t block) {
  CopyNeed need;
  std::int64_t taken = 0;
  std::int64_t peak = 0;
  for (const CopyPlan& plan : plans) {
    if (plan.same) {
      continue;
    }
    std::uint64_t comes = 0;
    for (const CopiedFile& file : plan.files) {
      comes += InBlocks(file.length, block);
    }
    std::uint64_t goes = 0;
    for (const std::uint64_t length : plan.replaced) {
      goes += InBlocks(length, block);
    }
    need.total += comes;
    peak = std::max(peak, taken + static_cast<std::int64_t>(comes));
    taken += static_cast<std::int64_t>(comes) - static_cast<std::int64_t>(goes);
  }
  need.peak = static_cast<std::uint64_t>(peak);
  return need;
}

RoomEnd Fits(const CopyNeed& need, const MediumRoom& room) {
  if (room.capacity == 0) {
    return RoomEnd::kEnough;
  }
  if (need.total > room.capacity) {
    return RoomEnd::kTooSmall;
  }
  return need.peak > room.free ? RoomEnd::kTooFull : RoomEnd::kEnough;
}

}  // namespace kalvo

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kalvo {

/// A line of the system's table of mounts.
struct Mount {
  std::string number;  ///< of its device: "8:17"
  std::string place;   ///< where it is mounted
  std::string device;  ///< "/dev/sdb1"
  bool writable = true;
};

/// The mounts that a text in the form of /proc/self/mountinfo says, in its order; lines that do
/// not have that form are passed over.
std::vector<Mount> ReadMounts(std::string_view mountinfo);

}  // namespace kalvo

#pragma once

#include <malloc.h>

namespace kalvo {

/// Keeps freed memory in the process. A run frees and takes the same few hundred kilobytes pass
/// after pass; given back to the system each time, its pages cost more than the calculation.
inline void KeepFreedMemory() {
  constexpr int kMost = 1 << 30;
  mallopt(M_MMAP_THRESHOLD, kMost);
  mallopt(M_TRIM_THRESHOLD, kMost);
}

}  // namespace kalvo

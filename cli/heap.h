#pragma once

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

namespace kalvo {

/// Keeps freed memory in the process. A run frees and takes the same few hundred kilobytes pass
/// after pass; given back to the system each time, its pages cost more than the calculation.
inline void KeepFreedMemory() {
  constexpr int kMost = 1 << 30;
  mallopt(M_MMAP_THRESHOLD, kMost);
  mallopt(M_TRIM_THRESHOLD, kMost);
}

/// Has the system lay ready `bytes` of the heap at once: page by page, as each is first touched, it
/// costs several times as much, on a virtual machine twenty times. Where that is not to be had the
/// pages come one by one as ever.
inline void LayMemoryReady(std::size_t bytes) {
  void* room = std::malloc(bytes);
  if (room == nullptr) {
    return;
  }
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const auto first = (reinterpret_cast<std::uintptr_t>(room) + page - 1) / page * page;
  const auto last = (reinterpret_cast<std::uintptr_t>(room) + bytes) / page * page;
  if (first < last) {
    madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
    madvise(reinterpret_cast<void*>(first), last - first, MADV_POPULATE_WRITE);
  }
  std::free(room);
}

}  // namespace kalvo

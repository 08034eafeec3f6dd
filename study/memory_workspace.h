#pragma once

#include "study/memory_disk.h"
#include "study/real_disk.h"
#include "study/workspace.h"

namespace kalvo {

/// A workspace for whoever has no window: work files live in memory, libraries and studies on the
/// machine's disk, nothing pauses and nothing is left behind.
class MemoryWorkspace {
 public:
  explicit MemoryWorkspace(std::filesystem::path library_folder)
      : workspace_(memory_, "/", disk_, std::move(library_folder), clock_) {}
  MemoryWorkspace(const MemoryWorkspace&) = delete;
  MemoryWorkspace& operator=(const MemoryWorkspace&) = delete;

  [[nodiscard]] Workspace& operator*() { return workspace_; }
  [[nodiscard]] Workspace* operator->() { return &workspace_; }
  [[nodiscard]] const Workspace& operator*() const { return workspace_; }
  [[nodiscard]] const Workspace* operator->() const { return &workspace_; }

 private:
  MemoryDisk memory_;
  RealDisk disk_;
  NoWait clock_;
  Workspace workspace_;
};

}  // namespace kalvo

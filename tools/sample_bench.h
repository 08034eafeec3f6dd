#pragma once

#include <stdexcept>
#include <string>

#include "study/memory_disk.h"
#include "study/real_disk.h"
#include "study/study_extensions.h"
#include "study/workbench.h"

namespace kalvo {

/// The value of a file operation. Errors: std::runtime_error when the world said no.
template <typename T>
T Expect(Result<T> result) {
  if (!result) {
    throw std::runtime_error(result.error().Line());
  }
  return std::move(result).value();
}

/// A sample gives the program no reason for a question or a warning, but that it has results.
class NothingToSay : public Prompter {
 public:
  static constexpr int kCalculateAnew = 190;

  Answer ShowMessage(int code, const Study& /*study*/) override {
    if (code == kCalculateAnew) {
      return Answer::kYes;
    }
    throw std::runtime_error("message " + std::to_string(code));
  }
  Answer Ask(const Box& box) override { throw std::runtime_error(box.lines.back()); }
};

/// The program at work on the study `study_path`, its work files in memory.
struct SampleBench {
  SampleBench(const std::filesystem::path& library, const std::filesystem::path& study_path)
      : workspace(memory, "/", disk, library, clock),
        pipes(Expect(BuildPipeList(workspace, EmptyLibraries::kSkip))) {
    study.system_kind = KindOfName(study_path.string());
    study.study_path = study_path;
  }

  MemoryDisk memory;
  RealDisk disk;
  NoWait clock;
  Workspace workspace;
  PipeList pipes;
  NothingToSay prompter;
  Study study;
  Workbench bench{study, workspace, pipes, prompter};
};

}  // namespace kalvo

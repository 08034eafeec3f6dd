#pragma once

#include "study/pipe_list.h"
#include "study/prompter.h"
#include "study/study.h"
#include "study/workspace.h"

namespace kalvo {

/// All that an operation on the open study needs, handed down by reference.
class Workbench {
 public:
  Workbench(Study& open_study, Workspace& folders, const PipeList& pipe_list, Prompter& user)
      : study(open_study), workspace(folders), pipes(pipe_list), prompter(user) {}

  Study& study;
  Workspace& workspace;
  const PipeList& pipes;
  Prompter& prompter;

  /// Shows a numbered message; what was answered to a question stays in the study.
  Answer Show(int code) { return Keep(prompter.ShowMessage(code, study)); }
  /// The same for a box with its own text.
  Answer Ask(const Box& box) { return Keep(prompter.Ask(box)); }

 private:
  Answer Keep(Answer answer) {
    if (answer != Answer::kNone) {
      study.answer = answer;
    }
    return answer;
  }
};

}  // namespace kalvo

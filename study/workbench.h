#pragma once

#include "study/fault_note.h"
#include "study/pipe_list.h"
#include "study/prompter.h"
#include "study/study.h"
#include "study/workspace.h"

namespace kalvo {

/// All that an operation on the open study needs, handed down by reference. Without a `log` faults
/// are told to the user alone.
class Workbench {
 public:
  Workbench(Study& open_study, Workspace& folders, const PipeList& pipe_list, Prompter& user,
            FaultLog* log = nullptr)
      : study(open_study), workspace(folders), pipes(pipe_list), prompter(user), fault_log(log) {}

  Study& study;
  Workspace& workspace;
  const PipeList& pipes;
  Prompter& prompter;
  FaultLog* fault_log;

  /// Shows a numbered message; what was answered if it asks.
  Answer Show(int code) { return prompter.ShowMessage(code, study); }
  /// The same below facts that help to answer; kNone when the question was left open.
  Answer ShowWith(const MessageFacts& facts, int code) {
    return prompter.ShowMessageWith(facts, code, study);
  }
  /// The same for a box with its own text.
  Answer Ask(const Box& box) { return prompter.Ask(box); }

  /// Writes down what is known of a fault, and gives it.
  FaultNote NoteFault(const std::exception& cause) const {
    FaultNote note = NoteOf(cause, study);
    if (fault_log != nullptr) {
      fault_log->Note(note);
    }
    return note;
  }
};

}  // namespace kalvo

#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "study/prompter.h"

namespace kalvo {

/// True for the numbered messages that wait for more than OK.
bool AsksByCode(int code);

/// A user who answers by script. Questions must come in the order in which they were expected; the
/// test fails on a question that is not next in the script, which then gets "no", and on an answer
/// that is left over at the end. What only tells something needs no script. All is recorded.
/// Message 300 answers "no" by itself, as it does in the program.
class ScriptedPrompter : public Prompter {
 public:
  ScriptedPrompter() = default;
  ScriptedPrompter(const ScriptedPrompter&) = delete;
  ScriptedPrompter& operator=(const ScriptedPrompter&) = delete;
  ~ScriptedPrompter() override;

  /// Happens when a message or box comes up, as the painting of the windows does.
  std::function<void()> before_box;

  void Expect(int code, Answer answer);
  void Expect(const std::string& box_title, Answer answer);

  Answer ShowMessage(int code, const Study& study) override;
  Answer Ask(const Box& box) override;

  /// Codes of all messages shown, questions too, oldest first.
  [[nodiscard]] const std::vector<int>& codes() const { return codes_; }
  /// All boxes shown that carry their own text.
  [[nodiscard]] const std::vector<Box>& boxes() const { return boxes_; }

 private:
  struct Question {
    std::string what;
    Answer answer = Answer::kNone;
  };

  Answer TakeAnswer(const std::string& what);

  std::deque<Question> script_;
  std::vector<int> codes_;
  std::vector<Box> boxes_;
};

}  // namespace kalvo

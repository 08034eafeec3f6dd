#include "tests/support/scripted_prompter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace kalvo {
namespace {

constexpr int kAnswersNo = 300;

// The message catalogue lies on a floor above most of the tests, hence a list of its own here.
constexpr std::array kAskingCodes = {-300, 100, 120, 130, 135, 175, 190, 304, 306, 307};

std::string NameOf(int code) { return "message " + std::to_string(code); }
std::string NameOf(const std::string& title) { return "box \"" + title + "\""; }

}  // namespace

bool AsksByCode(int code) { return std::ranges::find(kAskingCodes, code) != kAskingCodes.end(); }

ScriptedPrompter::~ScriptedPrompter() {
  for (const Question& question : script_) {
    ADD_FAILURE() << "never asked: " << question.what;
  }
}

void ScriptedPrompter::Expect(int code, Answer answer) {
  EXPECT_TRUE(AsksByCode(code)) << NameOf(code) << " asks nothing";
  script_.push_back({NameOf(code), answer});
}

void ScriptedPrompter::Expect(const std::string& box_title, Answer answer) {
  script_.push_back({NameOf(box_title), answer});
}

Answer ScriptedPrompter::ShowMessage(int code, const Study& /*study*/) {
  codes_.push_back(code);
  if (before_box) before_box();
  if (AsksByCode(code)) {
    return TakeAnswer(NameOf(code));
  }
  return code == kAnswersNo ? Answer::kNo : Answer::kNone;
}

Answer ScriptedPrompter::Ask(const Box& box) {
  boxes_.push_back(box);
  if (before_box) before_box();
  return StyleAsks(box.style) ? TakeAnswer(NameOf(box.title)) : Answer::kNone;
}

Answer ScriptedPrompter::TakeAnswer(const std::string& what) {
  if (script_.empty() || script_.front().what != what) {
    ADD_FAILURE() << "unexpected question: " << what << ", expected: "
                  << (script_.empty() ? std::string("none") : script_.front().what);
    return Answer::kNo;
  }
  const Answer answer = script_.front().answer;
  script_.pop_front();
  return answer;
}

}  // namespace kalvo

#include "cli/console_prompter.h"

#include "shell/messages.h"

namespace kalvo {

namespace {

constexpr int kResultsExist = 190;
constexpr int kCapacity = -300;

}  // namespace

void PrintBox(std::ostream& stream, const Box& box) {
  stream << box.title << '\n';
  for (const std::string& line : box.lines) {
    stream << line << '\n';
  }
}

void ConsolePrompter::Print(const Box& box) const {
  console_.out.flush();
  PrintBox(console_.err, box);
}

Answer ConsolePrompter::ShowMessage(int code, const Study& study) {
  if (code == kResultsExist) {
    return Answer::kYes;  // a calculation asked for here is always a new run
  }
  if (code == kCapacity && ignore_capacity) {
    return Answer::kYes;
  }
  const auto box = MessageFor(code, study, console_.separators);
  if (box) {
    Print(*box);
  }
  if (code == kCapacity) {
    console_.err << "  ΟΧΙ : με --ignore-capacity οι υπολογισμοί συνεχίζονται\n";
  }
  return AnswerOf(code, Answer::kNo);
}

Answer ConsolePrompter::Ask(const Box& box) {
  Print(box);
  return StyleAsks(box.style) ? Answer::kNo : Answer::kNone;
}

}  // namespace kalvo

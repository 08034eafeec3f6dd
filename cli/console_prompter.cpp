#include "cli/console_prompter.h"

#include "shell/messages.h"

namespace kalvo {

namespace {

constexpr int kResultsExist = 190;
constexpr int kCapacity = -300;

}  // namespace

void ConsolePrompter::Print(const Box& box) const {
  console_.out.flush();
  console_.err << console_.Alarm(box.title) << '\n';
  for (const std::string& line : box.lines) {
    console_.err << line << '\n';
  }
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
  if (!StyleAsks(box.style)) {
    return Answer::kNone;
  }
  console_.err << (agrees ? "  ΝΑΙ\n" : "  ΟΧΙ : με --yes η απάντηση είναι ναι\n");
  return agrees ? Answer::kYes : Answer::kNo;
}

}  // namespace kalvo

#include "desktop/qt_prompter.h"

#include <QApplication>

#include "desktop/widgets/boxes/message_box.h"
#include "shell/messages.h"

namespace kalvo {

Answer QtPrompter::ShowMessage(int code, const Study& study) {
  const auto box = MessageFor(code, study, separators_);
  return box ? AnswerOf(code, Ask(*box)) : Answer::kNone;
}

Answer QtPrompter::ShowMessageWith(const MessageFacts& facts, int code, const Study& study) {
  auto box = MessageFor(code, study, separators_);
  if (!box) return Answer::kNone;
  box->facts = facts;
  box->may_stay_open = true;
  return AnswerOf(code, Ask(*box));
}

Answer QtPrompter::Ask(const Box& box) {
  for (int beep = 0; beep < box.beeps; ++beep) {
    sound_.Beep();
  }
  if (on_box_) on_box_(true);
  MessageBox shown(box, QApplication::activeWindow());
  if (on_help_) shown.OnHelp([&](QWidget& window) { on_help_(window, box.number); });
  shown.exec();
  if (on_box_) on_box_(false);
  return shown.GivenAnswer();
}

}  // namespace kalvo

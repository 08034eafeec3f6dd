#pragma once

#include <QWidget>
#include <functional>

#include "form/sound.h"
#include "study/prompter.h"
#include "study/separators.h"

namespace kalvo {

/// Shows messages and questions as boxes over the window in front.
class QtPrompter : public Prompter {
 public:
  QtPrompter(Sound& sound, Separators separators) : sound_(sound), separators_(separators) {}

  Answer ShowMessage(int code, const Study& study) override;
  Answer ShowMessageWith(const MessageFacts& facts, int code, const Study& study) override;
  Answer Ask(const Box& box) override;

  /// Called with true before a box shows, with false when it has been answered.
  void OnBox(std::function<void(bool)> on_box) { on_box_ = std::move(on_box); }
  /// Called when the user asks for help on a box, with its window and number (Box::number).
  void OnHelp(std::function<void(QWidget&, int)> on_help) { on_help_ = std::move(on_help); }

 private:
  Sound& sound_;
  Separators separators_;
  std::function<void(bool)> on_box_;
  std::function<void(QWidget&, int)> on_help_;
};

}  // namespace kalvo

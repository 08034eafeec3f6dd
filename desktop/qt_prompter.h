#pragma once

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

 private:
  Sound& sound_;
  Separators separators_;
  std::function<void(bool)> on_box_;
};

}  // namespace kalvo

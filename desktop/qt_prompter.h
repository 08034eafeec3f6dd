#pragma once

#include "form/sound.h"
#include "study/prompter.h"
#include "study/separators.h"

namespace kalvo {

/// Shows messages and questions as boxes over the window in front.
class QtPrompter : public Prompter {
 public:
  QtPrompter(Sound& sound, Separators separators) : sound_(sound), separators_(separators) {}

  Answer ShowMessage(int code, const Study& study) override;
  Answer Ask(const Box& box) override;

 private:
  Sound& sound_;
  Separators separators_;
};

}  // namespace kalvo

#pragma once

#include "cli/console.h"
#include "study/prompter.h"

namespace kalvo {

/// Shows boxes as text on the console's `err` and answers by the command's flags.
class ConsolePrompter : public Prompter {
 public:
  explicit ConsolePrompter(const Console& console) : console_(console) {}

  /// Pipes that do not suffice are accepted.
  bool ignore_capacity = false;
  /// What boxes with their own text ask is agreed to.
  bool agrees = false;

  Answer ShowMessage(int code, const Study& study) override;
  Answer Ask(const Box& box) override;

 private:
  // Title line and text lines as they stand.
  void Print(const Box& box) const;

  const Console& console_;
};

}  // namespace kalvo

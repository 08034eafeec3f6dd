#pragma once

#include <string>
#include <string_view>

namespace kalvo {

/// The text that programs hand each other by copying and pasting. UTF-8.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  /// The text that was copied last; empty where there is none.
  [[nodiscard]] virtual std::string Text() const = 0;
  virtual void SetText(std::string_view text) = 0;
};

/// One in memory, shared with no other program.
class MemoryClipboard : public Clipboard {
 public:
  [[nodiscard]] std::string Text() const override { return text_; }
  void SetText(std::string_view text) override { text_ = text; }

 private:
  std::string text_;
};

}  // namespace kalvo

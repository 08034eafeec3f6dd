#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <utility>

#include "form/control.h"

namespace kalvo {

/// A text in Markdown that is read: headings, tables, pictures, links. Links and pictures are
/// relative to its folder.
class Reading : public Control {
 public:
  using Control::Control;

  std::filesystem::path folder;
  std::function<void(const std::string& target)> on_follow;  ///< the user follows a link
  int scrolled = 0;  ///< how far the user has come, in the front-end's own measure

  [[nodiscard]] const std::string& text() const { return text_; }
  /// The heading it is turned to, by its anchor; empty: `scrolled`.
  [[nodiscard]] const std::string& anchor() const { return anchor_; }
  /// Words that were looked for: they are marked.
  [[nodiscard]] const std::string& marked() const { return marked_; }
  /// Grows whenever it is turned to another text or another place of it.
  [[nodiscard]] int turns() const { return turns_; }
  /// Grows whenever other words are marked.
  [[nodiscard]] int markings() const { return markings_; }

  void TurnTo(std::string text, std::string anchor, int scrolled_before = 0) {
    text_ = std::move(text);
    anchor_ = std::move(anchor);
    scrolled = scrolled_before;
    ++turns_;
  }
  void Mark(std::string words) {
    if (words == marked_) return;
    marked_ = std::move(words);
    ++markings_;
  }

 private:
  std::string text_;
  std::string anchor_;
  std::string marked_;
  int turns_ = 0;
  int markings_ = 0;
};

}  // namespace kalvo

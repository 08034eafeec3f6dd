#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/manual/manual_book.h"

namespace kalvo {

/// A part of a chapter, from its heading to the next one, in which all words looked for are.
struct ManualHit {
  ManualPlace spot;
  std::string chapter_title;
  std::string heading;
};

/// Finds words in a manual whatever their case and accents (SearchKey()).
class ManualSearch {
 public:
  explicit ManualSearch(const ManualBook& book);

  /// The parts that hold every word typed, or its beginning or end: first those that have them in
  /// their heading, then the others, each in the manual's order. Nothing typed finds nothing.
  [[nodiscard]] std::vector<ManualHit> Find(std::string_view typed) const;

 private:
  struct Part {
    ManualHit hit;
    std::string heading_key;
    std::string key;  ///< of heading and text
  };
  std::vector<Part> parts_;
};

/// The words of a text, by SearchKey().
std::vector<std::string> SearchWords(std::string_view typed);

}  // namespace kalvo

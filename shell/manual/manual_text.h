#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kalvo {

/// A heading of a chapter: its level (1 for the chapter's own), its words without marks, and the
/// name that links give it.
struct ManualHeading {
  int level = 0;
  std::string text;
  std::string anchor;
};

/// What links call a heading: small letters, digits and hyphens, blanks made hyphens, other signs
/// left out.
std::string ManualAnchor(std::string_view heading);

/// A text in Markdown without its marks: the words that are read.
std::string PlainText(std::string_view markdown);

/// A heading's level, 1 to 6, if the line is one; else 0.
int HeadingLevel(std::string_view line);

/// The lines of a text, without their ends.
std::vector<std::string> LinesOf(std::string_view text);

/// True when the line begins or ends a block of code in which nothing is a mark.
bool IsFence(std::string_view line);

/// Gives headings their anchors, in their order: one that was there already gets "-1", "-2", ...
class AnchorMaker {
 public:
  std::string Next(std::string_view heading);

 private:
  std::vector<std::string> given_;
};

/// The headings of a text, in their order.
std::vector<ManualHeading> HeadingsOf(std::string_view markdown);

}  // namespace kalvo

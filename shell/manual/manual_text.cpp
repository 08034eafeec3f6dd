#include "shell/manual/manual_text.h"

#include <algorithm>
#include <array>

#include "study/codepage.h"
#include "study/letter_case.h"

namespace kalvo {
namespace {

constexpr int kDeepestHeading = 6;

// Signs of headings and texts that no anchor keeps, besides those of ASCII.
constexpr std::u32string_view kLeftOut = U"«»“”‘’·…–—΄°²³×→≥≤±";

bool StaysInAnchor(char32_t character) {
  if (character >= 0x80) return kLeftOut.find(character) == std::u32string_view::npos;
  const bool small = character >= U'a' && character <= U'z';
  const bool capital = character >= U'A' && character <= U'Z';
  const bool digit = character >= U'0' && character <= U'9';
  return small || capital || digit || character == U'-' || character == U'_';
}

// Cuts "[words](target)" and "![words](target)" down to their words.
std::string WithoutTargets(std::string_view text) {
  std::string words;
  while (!text.empty()) {
    const std::size_t middle = text.find("](");
    if (middle == std::string_view::npos) break;
    const std::size_t end = text.find(')', middle);
    if (end == std::string_view::npos) break;
    const std::size_t begin = text.rfind('[', middle);
    std::size_t before = begin == std::string_view::npos ? middle : begin;
    const std::size_t first = begin == std::string_view::npos ? middle : begin + 1;
    if (before > 0 && text[before - 1] == '!') --before;
    words += text.substr(0, before);
    words += text.substr(first, middle - first);
    text.remove_prefix(end + 1);
  }
  return words + std::string(text);
}

}  // namespace

std::string ManualAnchor(std::string_view heading) {
  std::string anchor;
  while (!heading.empty()) {
    const std::string_view before = heading;
    const char32_t character = TakeCharacter(heading);
    const std::string_view letter = before.substr(0, before.size() - heading.size());
    if (character == U' ') {
      anchor += '-';
    } else if (character == U'ς') {
      anchor += letter;  // a small letter already, for which another one counts in comparisons
    } else if (StaysInAnchor(character)) {
      anchor += LowerCase(letter);
    }
  }
  return anchor;
}

std::string PlainText(std::string_view markdown) {
  const std::string words = WithoutTargets(markdown);
  std::string plain;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const char c = words[i];
    if (c == '\\' && i + 1 < words.size()) {
      plain += words[++i];
    } else if (c != '*' && c != '`') {
      plain += c == '|' ? ' ' : c;
    }
  }
  return plain;
}

int HeadingLevel(std::string_view line) {
  const auto level = static_cast<int>(std::min(line.find_first_not_of('#'), line.size()));
  const bool is_heading = level >= 1 && level <= kDeepestHeading &&
                          line.size() > static_cast<std::size_t>(level) &&
                          line[static_cast<std::size_t>(level)] == ' ';
  return is_heading ? level : 0;
}

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

bool IsFence(std::string_view line) { return line.starts_with("```"); }

std::string AnchorMaker::Next(std::string_view heading) {
  const std::string anchor = ManualAnchor(heading);
  const auto before = std::ranges::count(given_, anchor);
  given_.push_back(anchor);
  return before == 0 ? anchor : anchor + "-" + std::to_string(before);
}

std::vector<ManualHeading> HeadingsOf(std::string_view markdown) {
  std::vector<ManualHeading> headings;
  AnchorMaker anchors;
  bool in_code = false;
  for (const std::string& line : LinesOf(markdown)) {
    if (IsFence(line)) in_code = !in_code;
    const int level = in_code ? 0 : HeadingLevel(line);
    if (level == 0) continue;
    const std::string text = PlainText(line.substr(static_cast<std::size_t>(level) + 1));
    headings.push_back({level, text, anchors.Next(text)});
  }
  return headings;
}

}  // namespace kalvo

#include "tools/tables/message_text.h"

#include "shell/message_table.h"

namespace kalvo {
namespace {

// Blanks only centre a line on the screen.
std::string WithSingleBlanks(std::string_view text) {
  std::string line;
  for (const char c : text) {
    if (c != ' ' || (!line.empty() && line.back() != ' ')) line += c;
  }
  if (line.ends_with(' ')) line.pop_back();
  return line;
}

std::string_view KindHead(SystemKind kind) {
  switch (kind) {
    case SystemKind::kClosed:
      return "Κλειστό σύστημα";
    case SystemKind::kOpen:
      return "Ανοικτό σύστημα";
    case SystemKind::kNone:
      break;
  }
  return "Χωρίς σύστημα";
}

// A reader gets dots where the program puts what it knows, as "{critical_branch}".
std::string WithoutNames(std::string text) {
  for (std::size_t at = text.find('{'); at != std::string::npos; at = text.find('{', at)) {
    const std::size_t end = text.find('}', at);
    if (end == std::string::npos) break;
    text.replace(at, end + 1 - at, "…");
  }
  return text;
}

// Lines of a paragraph are parted by two blanks at their ends.
std::string Quote(const Message& message) {
  std::string text = "> *" + WithSingleBlanks(message.title) + "*\n>\n";
  std::string lines;
  for (const std::string_view line : message.lines) {
    const std::string words = WithoutNames(WithSingleBlanks(line));
    if (words.empty()) continue;
    lines += (lines.empty() ? "> " : "  \n> ") + words;
  }
  return text + lines + "\n";
}

bool HasLines(const Message& message) { return !message.lines.front().empty(); }

}  // namespace

std::string MessageText(int number) {
  std::string text;
  for (const Message& message : MessageTable()) {
    if (message.code != number || !HasLines(message)) continue;
    if (!text.empty()) text += ">\n";
    if (message.kind) text += "> " + std::string(KindHead(*message.kind)) + ":\n>\n";
    text += Quote(message);
  }
  return text;
}

}  // namespace kalvo

#include "study/text_lines.h"

#include "study/codepage.h"

namespace kalvo {

std::vector<std::string> SplitLines(std::string_view bytes) {
  const std::string text = IsUtf8(bytes) ? std::string(bytes) : FromCodePage(bytes);
  std::vector<std::string> lines;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
    if (line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    lines.emplace_back(line);
  }
  return lines;
}

std::string_view Unquoted(std::string_view text) {
  if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
    return text.substr(1, text.size() - 2);
  }
  return text;
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

}  // namespace kalvo

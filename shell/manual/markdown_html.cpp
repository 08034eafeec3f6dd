#include "shell/manual/markdown_html.h"

#include <algorithm>
#include <cctype>
#include <span>
#include <utility>
#include <vector>

#include "shell/manual/manual_text.h"

namespace kalvo {
namespace {

constexpr std::string_view kPunctuation = "\\`*_{}[]()#+-.!|<>~";
constexpr std::size_t kCodeIndent = 4;
constexpr std::string_view kLineBreak = "  ";  // at the end of a line

using MarkdownLines = std::span<const std::string>;

bool IsBlankLine(std::string_view line) { return line.find_first_not_of(' ') == line.npos; }

std::size_t IndentOf(std::string_view line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

// Where the words of a list's item begin, behind "- ", "* " or "12. "; 0: the line is none.
std::size_t ItemStart(std::string_view line) {
  const std::size_t indent = IndentOf(line);
  std::size_t at = indent;
  if (at < line.size() && (line[at] == '-' || line[at] == '*' || line[at] == '+')) {
    ++at;
  } else {
    while (at < line.size() && line[at] >= '0' && line[at] <= '9') ++at;
    if (at == indent || at >= line.size() || line[at] != '.') return 0;
    ++at;
  }
  return at + 1 < line.size() && line[at] == ' ' ? at + 1 : 0;
}

bool IsNumberedItem(std::string_view line) {
  const std::size_t indent = IndentOf(line);
  return indent < line.size() && std::isdigit(static_cast<unsigned char>(line[indent])) != 0;
}

bool IsTableRule(std::string_view line) {
  return line.starts_with('|') && line.find('-') != line.npos &&
         line.find_first_not_of("|-: ") == line.npos;
}

bool IsRuleLine(std::string_view line) { return line == "---" || line == "***"; }

// The cells of a table's line; "\|" is a sign of the cell.
std::vector<std::string> CellsOf(std::string_view line) {
  std::vector<std::string> cells;
  std::string cell;
  if (line.starts_with('|')) line.remove_prefix(1);
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '\\' && i + 1 < line.size() && line[i + 1] == '|') {
      cell += line[++i];
    } else if (line[i] == '|') {
      cells.push_back(std::exchange(cell, {}));
    } else {
      cell += line[i];
    }
  }
  if (!IsBlankLine(cell)) cells.push_back(cell);
  return cells;
}

// What is inside a line or a paragraph.
class InlineWriter {
 public:
  InlineWriter(std::string_view text, const PictureMaker& picture)
      : rest_(text), picture_(picture) {}

  std::string Write() {
    while (!rest_.empty()) TakeOne();
    while (!open_.empty()) Close();
    return html_;
  }

 private:
  void TakeOne() {
    if (rest_.front() == '\\' && rest_.size() > 1 && kPunctuation.find(rest_[1]) != rest_.npos) {
      html_ += HtmlText(rest_.substr(1, 1));
      rest_.remove_prefix(2);
    } else if (rest_.front() == '\n') {
      html_ += "<br/>";
      rest_.remove_prefix(1);
    } else if (!TakeCode() && !TakeMark("**", 'b') && !TakeMark("*", 'i') && !TakeTarget()) {
      html_ += HtmlText(rest_.substr(0, 1));
      rest_.remove_prefix(1);
    }
  }

  bool TakeCode() {
    if (rest_.front() != '`') return false;
    const std::size_t marks = std::min(rest_.find_first_not_of('`'), rest_.size());
    const std::size_t end = rest_.find(std::string(marks, '`'), marks);
    if (end == rest_.npos) return false;
    std::string_view code = rest_.substr(marks, end - marks);
    if (marks > 1 && code.starts_with(' ') && code.ends_with(' ') && code.size() > 1) {
      code = code.substr(1, code.size() - 2);
    }
    html_ += "<span class=\"key\">" + HtmlText(code) + "</span>";
    rest_.remove_prefix(end + marks);
    return true;
  }

  // A mark before a blank that opens nothing is a sign of the text.
  bool TakeMark(std::string_view mark, char tag) {
    if (!rest_.starts_with(mark)) return false;
    if (open_.ends_with(tag)) {
      Close();
    } else {
      const bool before_blank = rest_.size() == mark.size() || rest_[mark.size()] == ' ';
      const bool open_around = open_.find(tag) != std::string::npos;
      if (open_around || before_blank || rest_.find(mark, mark.size()) == rest_.npos) return false;
      open_ += tag;
      html_ += std::string("<") + tag + ">";
    }
    rest_.remove_prefix(mark.size());
    return true;
  }

  void Close() {
    html_ += std::string("</") + open_.back() + ">";
    open_.pop_back();
  }

  // "[words](target)" or "![caption](target)"
  bool TakeTarget() {
    const bool is_picture = rest_.starts_with("![");
    if (!is_picture && rest_.front() != '[') return false;
    const std::size_t begin = is_picture ? 2 : 1;
    const std::size_t middle = rest_.find("](", begin);
    const std::size_t end = middle == rest_.npos ? rest_.npos : rest_.find(')', middle);
    if (end == rest_.npos) return false;
    const std::string_view words = rest_.substr(begin, middle - begin);
    const std::string_view target = rest_.substr(middle + 2, end - middle - 2);
    html_ += is_picture ? picture_(target, words)
                        : "<a href=\"" + HtmlText(target) + "\">" +
                              InlineWriter(words, picture_).Write() + "</a>";
    rest_.remove_prefix(end + 1);
    return true;
  }

  std::string_view rest_;
  const PictureMaker& picture_;
  std::string html_;
  std::string open_;  ///< tags, the innermost last
};

class BlockWriter {
 public:
  explicit BlockWriter(const PictureMaker& picture) : picture_(picture) {}

  std::string Write(MarkdownLines lines) {
    std::string html;
    while (!lines.empty()) {
      const std::size_t taken = TakeBlock(lines, html);
      lines = lines.subspan(std::min(taken, lines.size()));
    }
    return html;
  }

 private:
  // The number of lines that the block at the front has.
  std::size_t TakeBlock(MarkdownLines lines, std::string& html) {
    const std::string& line = lines.front();
    if (IsBlankLine(line)) return 1;
    if (line.starts_with("<!--")) return TakeComment(lines);
    if (IsFence(line)) return TakeFenced(lines, html);
    if (HeadingLevel(line) > 0) return TakeHeading(line, html);
    if (IsRuleLine(line)) {
      html += "<hr/>";
      return 1;
    }
    if (line.starts_with('|') && lines.size() > 1 && IsTableRule(lines[1])) {
      return TakeTable(lines, html);
    }
    if (line.starts_with('>')) return TakeQuote(lines, html);
    if (ItemStart(line) > 0) return TakeList(lines, html);
    if (IndentOf(line) >= kCodeIndent) return TakeIndented(lines, html);
    return TakeParagraph(lines, html);
  }

  static std::size_t TakeComment(MarkdownLines lines) {
    std::size_t at = 0;
    while (at < lines.size() && lines[at].find("-->") == std::string::npos) ++at;
    return at + 1;
  }

  static std::size_t TakeFenced(MarkdownLines lines, std::string& html) {
    std::size_t at = 1;
    html += "<pre>";
    while (at < lines.size() && !IsFence(lines[at])) {
      html += (at == 1 ? "" : "\n") + HtmlText(lines[at]);
      ++at;
    }
    html += "</pre>";
    return at + 1;
  }

  static std::size_t TakeIndented(MarkdownLines lines, std::string& html) {
    std::size_t end = 0;
    for (std::size_t at = 0; at < lines.size(); ++at) {
      if (IsBlankLine(lines[at])) continue;
      if (IndentOf(lines[at]) < kCodeIndent) break;
      end = at + 1;
    }
    html += "<pre>";
    for (std::size_t at = 0; at < end; ++at) {
      const std::string& line = lines[at];
      html += (at == 0 ? "" : "\n") + HtmlText(line.substr(std::min(kCodeIndent, line.size())));
    }
    html += "</pre>";
    return end;
  }

  std::size_t TakeHeading(const std::string& line, std::string& html) {
    const int level = HeadingLevel(line);
    const std::string words = line.substr(static_cast<std::size_t>(level) + 1);
    const std::string tag = "h" + std::to_string(level) + ">";
    html += "<" + tag + "<a name=\"" + anchors_.Next(PlainText(words)) + "\"></a>" + Inline(words) +
            "</" + tag;
    return 1;
  }

  std::size_t TakeTable(MarkdownLines lines, std::string& html) {
    const std::vector<std::string> rule = CellsOf(lines[1]);
    html += "<table width=\"100%\"><thead>" + TableLine(lines[0], rule, "th") + "</thead>";
    std::size_t at = 2;
    for (; at < lines.size() && lines[at].starts_with('|'); ++at) {
      html += TableLine(lines[at], rule, "td");
    }
    html += "</table>";
    return at;
  }

  std::string TableLine(std::string_view line, const std::vector<std::string>& rule,
                        const std::string& tag) {
    std::vector<std::string> cells = CellsOf(line);
    cells.resize(std::max(cells.size(), rule.size()));
    std::string html = "<tr>";
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const bool right = i < rule.size() && rule[i].find_last_not_of(' ') != std::string::npos &&
                         rule[i][rule[i].find_last_not_of(' ')] == ':';
      html.append("<").append(tag).append(right ? " align=\"right\">" : " align=\"left\">");
      html.append(Inline(Trimmed(cells[i]))).append("</").append(tag).append(">");
    }
    return html + "</tr>";
  }

  std::size_t TakeQuote(MarkdownLines lines, std::string& html) {
    std::vector<std::string> inside;
    std::size_t at = 0;
    for (; at < lines.size() && lines[at].starts_with('>'); ++at) {
      inside.push_back(lines[at].substr(lines[at].starts_with("> ") ? 2 : 1));
    }
    html += "<blockquote>" + Write(inside) + "</blockquote>";
    return at;
  }

  // Blank lines between items do not end a list.
  std::size_t TakeList(MarkdownLines lines, std::string& html) {
    const bool numbered = IsNumberedItem(lines.front());
    const std::size_t indent = IndentOf(lines.front());
    const auto is_item = [&](const std::string& line) {
      return ItemStart(line) > 0 && IndentOf(line) == indent && IsNumberedItem(line) == numbered;
    };
    html += numbered ? "<ol>" : "<ul>";
    std::size_t end = 0;
    for (std::size_t at = 0; at < lines.size() && is_item(lines[at]);) {
      end = at + TakeItem(lines.subspan(at), html);
      at = end;
      while (at < lines.size() && IsBlankLine(lines[at])) ++at;
    }
    html += numbered ? "</ol>" : "</ul>";
    return end;
  }

  // An item has what is indented as far as its words, and lines that go on without a blank one.
  std::size_t TakeItem(MarkdownLines lines, std::string& html) {
    const std::size_t start = ItemStart(lines.front());
    std::vector<std::string> inside{lines.front().substr(start)};
    std::size_t blanks = 0;
    std::size_t end = 1;
    for (std::size_t at = 1; at < lines.size(); ++at) {
      const std::string& line = lines[at];
      if (IsBlankLine(line)) {
        ++blanks;
        continue;
      }
      const bool goes_on = blanks == 0 && !BeginsBlock(line);
      if (IndentOf(line) < start && !goes_on) break;
      inside.insert(inside.end(), std::exchange(blanks, 0), std::string());
      inside.push_back(line.substr(std::min(IndentOf(line), start)));
      end = at + 1;
    }
    html += "<li>" + WithoutOuterParagraph(Write(inside)) + "</li>";
    return end;
  }

  // An item that begins with a paragraph has its words without room around them.
  static std::string WithoutOuterParagraph(std::string html) {
    constexpr std::string_view kOpen = "<p>";
    constexpr std::string_view kClose = "</p>";
    if (!html.starts_with(kOpen)) return html;
    const std::size_t end = html.find(kClose);
    html.erase(end, kClose.size());
    html.erase(0, kOpen.size());
    return html;
  }

  std::size_t TakeParagraph(MarkdownLines lines, std::string& html) {
    std::string words;
    std::size_t at = 0;
    for (; at < lines.size() && !EndsParagraph(lines, at); ++at) {
      const bool broken = at > 0 && lines[at - 1].ends_with(kLineBreak);
      words += (at == 0 ? "" : broken ? "\n" : " ") + Trimmed(lines[at]);
    }
    const bool is_picture = words.starts_with("![") && words.find(')') == words.size() - 1;
    html += (is_picture ? "<p class=\"picture\">" : "<p>") + Inline(words) + "</p>";
    return at;
  }

  static bool EndsParagraph(MarkdownLines lines, std::size_t at) {
    return IsBlankLine(lines[at]) || (at > 0 && BeginsBlock(lines[at]));
  }

  static bool BeginsBlock(const std::string& line) {
    return HeadingLevel(line) > 0 || IsFence(line) || ItemStart(line) > 0 ||
           line.starts_with('|') || line.starts_with('>') || line.starts_with("<!--");
  }

  static std::string Trimmed(std::string_view text) {
    const std::size_t first = IndentOf(text);
    const std::size_t last = text.find_last_not_of(' ');
    return first == text.size() ? std::string() : std::string(text.substr(first, last - first + 1));
  }

  std::string Inline(std::string_view text) { return InlineWriter(text, picture_).Write(); }

  const PictureMaker& picture_;
  AnchorMaker anchors_;
};

}  // namespace

std::string HtmlText(std::string_view text) {
  std::string html;
  for (const char c : text) {
    switch (c) {
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '&':
        html += "&amp;";
        break;
      case '"':
        html += "&quot;";
        break;
      default:
        html += c;
    }
  }
  return html;
}

std::string MarkdownToHtml(std::string_view markdown, const PictureMaker& picture) {
  return BlockWriter(picture).Write(LinesOf(markdown));
}

}  // namespace kalvo

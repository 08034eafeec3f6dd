#include "platform/xls/page_text.h"

#include <algorithm>
#include <charconv>

#include "study/letter_case.h"

namespace kalvo {

namespace {

constexpr double kLargestPoints = 409;
constexpr std::size_t kColourDigits = 6;

bool IsDigitCharacter(char c) { return c >= '0' && c <= '9'; }
bool IsColourCharacter(char c) {
  return IsDigitCharacter(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool Contains(std::string_view text, std::string_view word) {
  for (; text.size() >= word.size(); text.remove_prefix(1)) {
    if (EqualIgnoringCase(text.substr(0, word.size()), word)) return true;
  }
  return false;
}

class PageTextReader {
 public:
  explicit PageTextReader(const PageTextFacts& facts) : facts_(facts) { Begin(text_.centre); }

  PageText Read(std::string_view codes) {
    while (!codes.empty()) {
      const char first = codes.front();
      codes.remove_prefix(1);
      if (first != '&') {
        Put(first);
      } else if (!codes.empty()) {
        codes.remove_prefix(TakeCode(codes));
      }
    }
    for (PageTextPart* part : {&text_.left, &text_.centre, &text_.right}) {
      const auto is_empty = [](const PageTextLine& line) { return line.empty(); };
      if (std::ranges::all_of(*part, is_empty)) part->clear();
    }
    return std::move(text_);
  }

 private:
  // A part that begins again goes on in its last line.
  void Begin(PageTextPart& part) {
    part_ = &part;
    font_ = facts_.font;
    if (part.empty()) part.emplace_back();
  }

  void Put(char c) {
    if (c == '\r') return;
    if (c == '\n') {
      part_->emplace_back();
      return;
    }
    PageTextLine& line = part_->back();
    if (line.empty() || line.back().font != font_) line.push_back({{}, font_});
    line.back().text += c;
  }
  void Put(std::string_view text) {
    for (const char c : text) Put(c);
  }

  // Gives the length of the code, which is without its "&".
  std::size_t TakeCode(std::string_view code) {
    if (code.front() == '"') return TakeFont(code);
    if (IsDigitCharacter(code.front())) return TakeSize(code);
    switch (code.front()) {
      case 'L':
        Begin(text_.left);
        break;
      case 'C':
        Begin(text_.centre);
        break;
      case 'R':
        Begin(text_.right);
        break;
      case 'P':
        Put(std::to_string(facts_.page));
        break;
      case 'N':
        Put(std::to_string(facts_.pages));
        break;
      case 'A':
        Put(facts_.sheet);
        break;
      case '&':
        Put('&');
        break;
      case 'B':
        font_.bold = !font_.bold;
        break;
      case 'I':
        font_.italic = !font_.italic;
        break;
      case 'U':
      case 'E':
        font_.underlined = !font_.underlined;
        break;
      case 'S':
        font_.struck_out = !font_.struck_out;
        break;
      case 'K':
        return 1 + LeadingCount(code.substr(1, kColourDigits), IsColourCharacter);
      default:
        break;
    }
    return 1;
  }

  static std::size_t LeadingCount(std::string_view text, bool (*belongs)(char)) {
    return static_cast<std::size_t>(std::ranges::find_if_not(text, belongs) - text.begin());
  }

  // "Noto Sans,Bold Italic" in quotes; "-" is the font that there is.
  std::size_t TakeFont(std::string_view code) {
    const std::size_t end = std::min(code.find('"', 1), code.size());
    const std::string_view named = code.substr(1, end - 1);
    const std::size_t comma = std::min(named.find(','), named.size());
    const std::string_view name = named.substr(0, comma);
    const std::string_view style = named.substr(comma);
    if (!name.empty() && name != "-") font_.name = name;
    font_.bold = Contains(style, "bold");
    font_.italic = Contains(style, "italic");
    return std::min(end + 1, code.size());
  }

  std::size_t TakeSize(std::string_view code) {
    const std::size_t digits = LeadingCount(code, IsDigitCharacter);
    int points = 0;
    const auto read = std::from_chars(code.data(), code.data() + digits, points);
    if (read.ec == std::errc() && points >= 1 && points <= kLargestPoints) {
      font_.height_points = points;
    }
    return digits;
  }

  const PageTextFacts& facts_;
  PageText text_;
  PageTextPart* part_ = nullptr;
  CellFont font_;
};

}  // namespace

PageText ReadPageText(std::string_view codes, const PageTextFacts& facts) {
  return PageTextReader(facts).Read(codes);
}

}  // namespace kalvo

#include "study/sheet_intro.h"

#include <array>
#include <charconv>

#include "study/fault.h"
#include "study/text_lines.h"

namespace kalvo {
namespace {

constexpr std::string_view kOpenWord = "OPEN";
constexpr std::string_view kClosedWord = "CLOSED";
constexpr std::size_t kIntroLines = std::tuple_size_v<decltype(SheetIntro::kLines)>;

// A title from a foreign file may hold a line end.
std::string LineOf(std::string text) {
  for (char& byte : text) {
    if (byte == '\n' || byte == '\r') byte = ' ';
  }
  return text;
}
std::string LineOf(SystemKind kind) {
  return std::string(kind == SystemKind::kOpen ? kOpenWord : kClosedWord);
}
// Exact, and without an exponent, which no number is read with.
std::string LineOf(float value) {
  std::array<char, 64> text{};
  const auto written =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  return {text.data(), written.ptr};
}
std::string LineOf(std::int16_t value) { return NumberText(int{value}); }

double NumberIn(std::string_view line) { return ParseNumber(line, Separators{'.', ','}); }

void TakeLine(std::string& text, std::string_view line) { text = line; }
void TakeLine(SystemKind& kind, std::string_view line) {
  kind = line == kOpenWord ? SystemKind::kOpen : SystemKind::kClosed;
}
void TakeLine(float& value, std::string_view line) { value = ToSingle(NumberIn(line)); }
void TakeLine(std::int16_t& value, std::string_view line) { value = ToInt16(NumberIn(line)); }

}  // namespace

SheetIntro IntroOf(const Study& study) {
  return {study.study_title, study.system_kind,   study.TotalFlowM3h,      study.MeanTemp,
          study.MeanVel,     study.plant_section, study.pipe_system_number};
}

void TakeIntro(Study& study, const SheetIntro& intro) {
  study.study_title = intro.study_title;
  study.system_kind = intro.kind;
  study.TotalFlowM3h = intro.TotalFlowM3h;
  study.MeanTemp = intro.MeanTemp;
  study.MeanVel = intro.MeanVel;
  study.plant_section = intro.plant_section;
  study.pipe_system_number = intro.pipe_system_number;
}

std::string EncodeIntro(const SheetIntro& intro) {
  const auto text_of = [&intro](auto... members) {
    return (... + (Quoted(LineOf(intro.*members)) + "\n"));
  };
  return std::apply(text_of, SheetIntro::kLines);
}

Result<SheetIntro> DecodeIntro(std::string_view bytes, const std::filesystem::path& file) {
  const std::vector<std::string> lines = SplitLines(bytes);
  if (lines.size() < kIntroLines) return FileError{file, "Το αρχείο είναι ελλιπές"};
  SheetIntro intro;
  auto line = lines.begin();
  const auto take = [&](auto... members) { (..., TakeLine(intro.*members, Unquoted(*line++))); };
  try {
    std::apply(take, SheetIntro::kLines);
  } catch (const Fault&) {
    return FileError{file, "Το αρχείο έχει άκυρο αριθμό"};
  }
  return intro;
}

}  // namespace kalvo

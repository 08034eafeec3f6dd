#include "study/sheet_intro.h"

#include "study/fault.h"
#include "study/rounding.h"
#include "study/text_lines.h"

namespace kalvo {
namespace {

constexpr std::size_t kIntroLines = 7;

}  // namespace

SheetIntro IntroOf(const Study& study) {
  return {study.study_title, study.system_kind,   study.TotalFlowM3h,      study.MeanTemp,
          study.MeanVel,     study.plant_section, study.pipe_system_number};
}

std::string EncodeSheetIntro(const SheetIntro& intro) {
  std::string bytes;
  for (const std::string& line :
       {intro.title, std::string(intro.kind == SystemKind::kOpen ? "OPEN" : "CLOSED"),
        NumberText(intro.flow_m3h), NumberText(intro.temperature), NumberText(intro.velocity),
        NumberText(intro.plant_section), NumberText(intro.pipe_system)}) {
    bytes += Quoted(line) + "\n";
  }
  return bytes;
}

Result<SheetIntro> DecodeSheetIntro(std::string_view bytes, const std::filesystem::path& file) {
  const std::vector<std::string> lines = SplitLines(bytes);
  if (lines.size() < kIntroLines) return FileError{file, "Το αρχείο είναι ελλιπές"};
  const auto number = [&](std::size_t line) {
    return ParseNumber(Unquoted(lines[line]), Separators{'.', ','});
  };
  SheetIntro intro;
  intro.title = Unquoted(lines[0]);
  intro.kind = Unquoted(lines[1]) == "OPEN" ? SystemKind::kOpen : SystemKind::kClosed;
  try {
    intro.flow_m3h = ToSingle(number(2));
    intro.temperature = ToSingle(number(3));
    intro.velocity = ToSingle(number(4));
    intro.plant_section = ToInt16(number(5));
    intro.pipe_system = ToInt16(number(6));
  } catch (const Fault&) {
    return FileError{file, "Το αρχείο έχει άκυρο αριθμό"};
  }
  return intro;
}

void TakeSheetIntro(Study& study, const SheetIntro& intro) {
  study.study_title = intro.title;
  study.system_kind = intro.kind;
  study.TotalFlowM3h = intro.flow_m3h;
  study.MeanTemp = intro.temperature;
  study.MeanVel = intro.velocity;
  study.plant_section = intro.plant_section;
  study.pipe_system_number = intro.pipe_system;
}

}  // namespace kalvo

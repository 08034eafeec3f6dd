#pragma once

#include <string>

#include "study/workbench.h"

namespace kalvo {

/// `Intro.ss2`: what goes with a sheet that has no rows yet, seven lines in quotes with "." in
/// numbers: title, "CLOSED" or "OPEN", total flow, mean temperature and velocity, plant section,
/// pipe system.
struct SheetIntro {
  std::string title;
  SystemKind kind = SystemKind::kNone;
  float flow_m3h = 0;
  float temperature = 0;
  float velocity = 0;
  std::int16_t plant_section = 0;
  std::int16_t pipe_system = 0;
};

SheetIntro IntroOf(const Study& study);
std::string EncodeSheetIntro(const SheetIntro& intro);
/// Error: lines are missing, or a number is none of its kind; `file` is named.
Result<SheetIntro> DecodeSheetIntro(std::string_view bytes, const std::filesystem::path& file);
/// The study takes all of it.
void TakeSheetIntro(Study& study, const SheetIntro& intro);

}  // namespace kalvo

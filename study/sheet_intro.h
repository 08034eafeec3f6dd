#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <tuple>

#include "study/result.h"
#include "study/study.h"

namespace kalvo {

/// What stands outside the section sheet (`Intro.ss2`).
struct SheetIntro {
  std::string study_title;
  SystemKind kind = SystemKind::kClosed;
  float TotalFlowM3h = 0;
  float MeanTemp = 0;  ///< °C
  float MeanVel = 0;   ///< m/s
  std::int16_t plant_section = 0;
  std::int16_t pipe_system_number = 0;

  /// One for each line of the file, in their order.
  static constexpr auto kLines = std::make_tuple(
      &SheetIntro::study_title, &SheetIntro::kind, &SheetIntro::TotalFlowM3h, &SheetIntro::MeanTemp,
      &SheetIntro::MeanVel, &SheetIntro::plant_section, &SheetIntro::pipe_system_number);

  bool operator==(const SheetIntro&) const = default;
};

SheetIntro IntroOf(const Study& study);

/// Makes `intro` the study's: title, kind, and the values of the whole network.
void TakeIntro(Study& study, const SheetIntro& intro);

/// The bytes of `Intro.ss2`.
std::string EncodeIntro(const SheetIntro& intro);

/// What those bytes hold. Error, which names `file`: fewer lines, or a number that does not fit its
/// place.
Result<SheetIntro> DecodeIntro(std::string_view bytes, const std::filesystem::path& file);

}  // namespace kalvo

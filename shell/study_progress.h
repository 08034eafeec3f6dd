#pragma once

#include <string>
#include <vector>

#include "form/pictures.h"
#include "study/study.h"

namespace kalvo {

/// The steps of a study in their order.
enum class Step { kTitle, kGeneralData, kSections, kEmitters, kCalculation, kResults };
constexpr std::size_t kStepCount = 6;

/// How far the open study has come, and what is to be done next.
struct StudyProgress {
  std::vector<RoadStation> stations;  ///< one for each step, without commands
  std::string sentence;               ///< what is to be done next, one plain sentence
  Step next = Step::kTitle;
};

/// The results are those of the data as they are now: nothing has changed since the calculation.
inline bool ResultsHold(const Study& study) {
  return study.results_valid && !study.recalculation_needed;
}

/// `rows`: whether the study has rows; `sheet`: whether its sheet holds what they do not.
StudyProgress ProgressOf(const Study& study, bool rows, bool sheet, Separators separators);

}  // namespace kalvo

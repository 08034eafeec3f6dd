#include "shell/study_progress.h"

#include <algorithm>
#include <array>

namespace kalvo {
namespace {

std::string Counted(int count, std::string_view one, std::string_view many, std::string_view none) {
  if (count == 0) return std::string(none);
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

std::string DesignValues(const Study& study, Separators separators) {
  return FormatPattern(study.MeanTemp, pattern::kOneDecimal, separators) + " °C · " +
         FormatPattern(study.MeanVel, pattern::kOneToThreeDecimals, separators) + " m/sec";
}

std::string EmitterCount(const Study& study) {
  return study.SystemOpen()
             ? Counted(study.EmitterCount, "υποδοχέας", "υποδοχείς", "κανένας υποδοχέας")
             : Counted(study.EmitterCount, "σώμα", "σώματα", "κανένα σώμα");
}

constexpr std::string_view kEmitters[] = {"Δεδομένα Σωμάτων", "Δεδομένα Υποδοχέων"};

bool IsLost(const Study& study) { return study.results_valid && study.lost_walk.has_value(); }

std::string NextSentence(const Study& study, Step next, bool untouched) {
  if (study.emitters_unchecked) {
    return study.SystemOpen() ? "οι υποδοχείς θέλουν έλεγχο πριν από νέους υπολογισμούς."
                              : "τα σώματα θέλουν έλεγχο πριν από νέους υπολογισμούς.";
  }
  if (study.recalculation_needed && study.came_by_recovery) {
    return "η μελέτη επανήλθε όπως έμεινε, χρειάζονται νέοι υπολογισμοί.";
  }
  if (study.recalculation_needed) return "τα δεδομένα άλλαξαν, χρειάζονται νέοι υπολογισμοί.";
  if (IsLost(study)) return "τα αποτελέσματα δεν ισχύουν, κάποιος κλάδος του δικτύου χάνεται.";
  switch (next) {
    case Step::kTitle:
      return untouched ? "καταχωρήστε το θέμα της μελέτης ή ανακαλέστε ένα αρχείο."
                       : "η μελέτη δεν έχει ακόμη θέμα.";
    case Step::kGeneralData:
      return "δώστε τη μέση θερμοκρασία και τη μέση ταχύτητα του υγρού.";
    case Step::kSections:
      return "η μελέτη δεν έχει ακόμη τμήματα· καταχωρήστε τα στο φύλλο.";
    case Step::kEmitters:
      return study.SystemOpen() ? "η μελέτη δεν έχει ακόμη υποδοχείς."
                                : "η μελέτη δεν έχει ακόμη σώματα.";
    case Step::kCalculation:
      return "τα δεδομένα είναι πλήρη, η μελέτη μπορεί να υπολογιστεί.";
    case Step::kResults:
      break;
  }
  return "τα αποτελέσματα είναι έτοιμα.";
}

}  // namespace

StudyProgress ProgressOf(const Study& study, bool rows, bool sheet, Separators separators) {
  const bool data = study.MeanTemp != 0 && study.MeanVel != 0;
  const bool valid = ResultsHold(study);
  const std::array<bool, kStepCount> done = {!study.study_title.empty(), data,  rows,
                                             study.EmitterCount > 0,     valid, valid};
  const int sections = rows ? study.SectionCount : 0;
  StudyProgress progress;
  progress.stations = {
      {nullptr, "ΘΕΜΑ-ΤΙΤΛΟΣ", done[0] ? "καταχωρήθηκε" : "εκκρεμεί"},
      {nullptr, "Γενικά Δεδομένα", data ? DesignValues(study, separators) : "εκκρεμεί"},
      {nullptr, "Δεδομένα Τμημάτων", Counted(sections, "τμήμα", "τμήματα", "κανένα τμήμα")},
      {nullptr, std::string(kEmitters[study.SystemOpen() ? 1 : 0]), EmitterCount(study)},
      {nullptr, "Υπολογισμοί", valid ? "έγιναν" : "δεν έχουν γίνει"},
      {nullptr, "ΠΑΡΟΥΣΙΑΣΗ ΑΠΟΤΕΛΕΣΜΑΤΩΝ", valid ? "έτοιμα" : "δεν υπάρχουν"}};
  const auto first_open = std::ranges::find(done, false);
  const auto next = static_cast<std::size_t>(first_open - done.begin());
  for (std::size_t i = 0; i < kStepCount; ++i) {
    RoadStation& station = progress.stations[i];
    station.mark = done[i] ? RoadMark::kDone : RoadMark::kLater;
    if (i == next) {
      station.mark = RoadMark::kNext;
      station.state = next == 0 ? "αρχίστε εδώ" : "επόμενο βήμα";
    }
  }
  progress.next = next < kStepCount ? static_cast<Step>(next) : Step::kResults;
  const auto stale = [&](Step step, std::string_view state) {
    RoadStation& station = progress.stations[static_cast<std::size_t>(step)];
    station.mark = RoadMark::kStale;
    station.state = state;
  };
  if (study.recalculation_needed) {
    stale(Step::kCalculation, "χρειάζονται νέοι υπολογισμοί");
    progress.next = Step::kCalculation;
  } else if (IsLost(study)) {
    stale(Step::kResults, "δεν ισχύουν");
  }
  if (study.emitters_unchecked) {
    stale(Step::kEmitters, "θέλουν έλεγχο");
    progress.next = Step::kEmitters;
  }
  progress.sentence = NextSentence(study, progress.next, !rows && study.study_title.empty());
  if (sheet) {
    stale(Step::kSections, "το φύλλο έμεινε ανοικτό");
    progress.next = Step::kSections;
    progress.sentence = "το φύλλο τμημάτων έχει στοιχεία που δεν πέρασαν ακόμη στη μελέτη.";
  }
  return progress;
}

}  // namespace kalvo

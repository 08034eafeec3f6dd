#include "engine/trap.h"

namespace kalvo {

namespace {

constexpr const char* kBrokenOffTitle = "  ! !  ΠΡΟΣΟΧΗ : Διακοπή των Υπολογισμών ! ! ";

Box BrokenOff(const char* text) { return {kBrokenOffTitle, {text}, box_style::kStop, kAlarmBeeps}; }

Box AskToGoOn() {
  return {"  ! !  ΠΡΟΣΟΧΗ : Προσωρινή Διακοπή των Υπολογισμών ! ! ",
          {"... Το Επιλεγέν <Σύστημα Σωλήνων>, δεν επαρκεί για την διατήρηση της",
           "ταχύτητας του νερού, στην περιοχή της <Μέσης Ταχύτητας Νερού> που",
           "έχετε επιλέξει στα <Εισαγωγικά Δεδομένα> της Μελέτης.", "   ",
           "              ... ΝΑ ΣΥΝΕΧΙΣΘΟΥΝ ΟΙ ΥΠΟΛΟΓΙΣΜΟΙ ?? ...             "},
          box_style::kYesNo,
          kAlarmBeeps};
}

}  // namespace

Box CalcErrorBox(int code) {
  switch (static_cast<FaultCode>(code)) {
    case FaultCode::kResumable:
      return AskToGoOn();
    case FaultCode::kBadArgument:
      return BrokenOff("... ΛΑΝΘΑΣΜΕΝΗ ΚΛΗΣΗ ΣΥΝΑΡΤΗΣΗΣ : Οι Υπολογισμοί τερματίζονται ...");
    case FaultCode::kOverflow:
      return BrokenOff("... Μάλλον ΔΕΝ έχετε καταχωρήσει όλα τα Σώματα ...");
    default:
      return BrokenOff("... ΣΟΒΑΡΟ ΣΦΑΛΜΑ : Οι Υπολογισμοί τερματίζονται ...");
  }
}

std::optional<FaultNote> ReportCalcError(Workbench& bench, const Fault& fault) {
  const FaultNote note = bench.NoteFault(fault);
  Box box = CalcErrorBox(note.number);
  const bool resumable = fault.code() == FaultCode::kResumable;
  if (!resumable) {
    box.lines.push_back(KnownLine(note));
  }
  const Answer answer = bench.Ask(box);
  if (resumable && answer == Answer::kYes) {
    return std::nullopt;
  }
  bench.study.failed_row = ToInt16(note.row);
  return note;
}

}  // namespace kalvo

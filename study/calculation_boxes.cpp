#include "study/calculation_boxes.h"

#include "study/fault.h"

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

Box FluidMisfitBox() {
  return {"...!! ΠΡΟΣΟΧΗ !!...",
          {"... Η τιμή του Κινηματικού Ιξώδους που έχετε δώσει ...",
           "... είναι υπό Μέση θερμοκρασία Ρέοντος Μέσου ...",
           "... που ΔΕΝ ταυτίζεται με την επιλεγείσα Μέση Θερμοκρασία για τούς Υπολογισμούς !...",
           " ", "                                 ...!! ΔΙΟΡΘΩΣΤΕ ΑΝΑΛΟΓΩΣ !!..."},
          box_style::kStop};
}

Box StaleWinterBox(const FileError& error) {
  return {
      "...!! ΠΡΟΣΟΧΗ !!...",
      {"... Τα αποτελέσματα του Χειμώνα ΔΕΝ ισχύουν πλέον, και δεν διαγράφονται ...", error.Line()},
      box_style::kStop};
}

}  // namespace kalvo
